#include <gtest/gtest.h>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "shell/app.h"
#include "shell/form_events.h"
#include "shell/startup.h"
#include "support/failure.h"

namespace tos {
namespace {

const std::pair<std::string, std::string> kDefaultDirKey{"Software\\Tolvarine Object Scripter",
                                                         "DefaultDir"};
const std::pair<std::string, std::string> kObjectDirKey{"Software\\Tolvarine Object Scripter",
                                                        "ObjectDir"};

struct StartupTest : ::testing::Test {
    test::FakePlatform platform;
    App app{platform};
};

TEST_F(StartupTest, FirstRunShowsTheFirstStateAndWritesNothing)
{
    int formRepaints = 0;
    app.main.formView.Subscribe([&] { ++formRepaints; });
    Main(app);

    EXPECT_EQ(app.state.AppName, "Tolvarine Object Scripter");
    EXPECT_DOUBLE_EQ(app.state.Pi, 3.14159265358979323846);
    EXPECT_EQ(app.state.DefaultDir, "/opt/tos");
    EXPECT_EQ(app.state.ObjectDir, "/opt/tos");
    EXPECT_EQ(app.state.IniFile, "/opt/tos/TolvarineObjectScripter.ini");
    EXPECT_TRUE(app.main.chkSave.Checked());
    EXPECT_TRUE(app.state.SaveToFile);
    EXPECT_EQ(app.main.lblVersion.Caption(), "Beta 1");
    EXPECT_TRUE(app.main.loaded && app.main.visible);
    EXPECT_TRUE(app.compiler.loaded);
    EXPECT_FALSE(app.compiler.visible);
    EXPECT_GT(formRepaints, 0);
    EXPECT_FALSE(app.main.btnProcess.Enabled());
    EXPECT_FALSE(app.main.txtProjectFilePath.Enabled());
    // The stock catalogue is loaded last.
    EXPECT_EQ(app.state.InternalBillboard.Rows().size(), 30u);
    // The store stays untouched until a folder is chosen.
    EXPECT_TRUE(platform.settings.empty());
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(StartupTest, RestoresRememberedFolders)
{
    struct Row {
        const char* storedDefault;
        const char* storedObject;
        const char* defaultDir;
        const char* objectDir;
    };
    // clang-format off
    const Row rows[] = {
        {"/home/u/projects", "/home/u/max", "/home/u/projects", "/home/u/max"},
        {"",                 "/home/u/max", "/opt/tos",         "/home/u/max"},
        {"/gone/folder",     "",            "/gone/folder",     "/opt/tos"},
    };
    // clang-format on
    for (const Row& row : rows) {
        test::FakePlatform p;
        if (*row.storedDefault)
            p.settings[kDefaultDirKey] = row.storedDefault;
        if (*row.storedObject)
            p.settings[kObjectDirKey] = row.storedObject;
        App a(p);
        Main(a);
        EXPECT_EQ(a.state.DefaultDir, row.defaultDir) << row.storedDefault;
        EXPECT_EQ(a.state.ObjectDir, row.objectDir) << row.storedObject;
    }
    Main(app, StartOptions{"/elsewhere/catalogue.ini"});
    EXPECT_EQ(app.state.IniFile, "/elsewhere/catalogue.ini");
}

TEST_F(StartupTest, FirstChoiceOfAMaxFileStoresBothFolders)
{
    test::ScratchDir dir;
    const std::string chosen = dir.Write("Tree.max", "");
    Main(app);
    platform.dialogAnswers.push_back(chosen);
    btnBrowseMaxFile_Click(app);

    EXPECT_EQ(platform.settings[kDefaultDirKey], "/opt/tos");
    EXPECT_EQ(platform.settings[kObjectDirKey], dir.Path().string());
    EXPECT_EQ(app.state.ObjectDir, dir.Path().string());
    EXPECT_EQ(app.main.txtMaxFile.Text(), chosen);
}

TEST_F(StartupTest, StoreWritesAreSilentAndNeedAKey)
{
    platform.failSettingWrites = true;
    Main(app);
    app.state.DefaultDir = "/new";
    SaveSettings(app);
    EXPECT_TRUE(platform.settings.empty());
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_EQ(app.state.DefaultDir, "/new");

    platform.failSettingWrites = false;
    SetRegStr(app, "DefaultDir", "/x", "", kHkeyCurrentUser);
    EXPECT_TRUE(platform.settings.empty());
    SetRegStr(app, "DefaultDir", "", "Software\\Tolvarine Object Scripter", kHkeyCurrentUser);
    EXPECT_EQ(GetRegStr(app, "Software\\Tolvarine Object Scripter", "DefaultDir", kHkeyCurrentUser),
              "");
}

// A store whose reads fail as the platform can.
struct FailingStore : test::FakePlatform {
    std::string ReadSetting(const std::string&, const std::string&) override
    {
        Fail(err::OutOfMemory);
    }
};

TEST(StartupStore, ReadFailureIsReportedAndReadsEmpty)
{
    FailingStore platform;
    App app(platform);
    Main(app);
    const std::string message = "Unexpected error in GetRegStr \n\n 7 - Out of memory";
    EXPECT_EQ(platform.Texts(), (std::vector<std::string>{message, message}));
    EXPECT_EQ(platform.messages[0].title, "TolvarineObjectScripter");
    EXPECT_EQ(app.state.DefaultDir, "/opt/tos");
    EXPECT_EQ(app.state.ObjectDir, "/opt/tos");
}

TEST(StartupCentring, PlacesEachFormInTheMiddleOrAtTheEdge)
{
    struct Row {
        double screenWidth, screenHeight;
        FormId form;
        int left, top;
    };
    // clang-format off
    const Row rows[] = {
        {19200, 10800, FormId::Main,     5152, 2160},
        {19200, 10800, FormId::Compiler, 6592, 2737},
        {8895,  6481,  FormId::Main,     0,    0},    // room of 0 and of 1 twip
        {8000,  5000,  FormId::Main,     0,    0},    // form larger than the screen
        {40000, 20000, FormId::Main,     0,    6760}, // width past 16 bits
        {32767, 32768, FormId::Main,     11936, 0},
    };
    // clang-format on
    for (const Row& row : rows) {
        test::FakePlatform platform;
        platform.screen = {row.screenWidth, row.screenHeight};
        App app(platform);
        CenterFormVertical(app, row.form);
        CenterFormHorizontal(app, row.form);
        const int left = row.form == FormId::Main ? app.main.left : app.compiler.left;
        const int top = row.form == FormId::Main ? app.main.top : app.compiler.top;
        EXPECT_EQ(left, row.left) << row.screenWidth;
        EXPECT_EQ(top, row.top) << row.screenHeight;
    }
}

TEST_F(StartupTest, ExitUnloadsBothFormsAndEndsTheProcess)
{
    int ended = 0;
    app.endProcess = [&] {
        ++ended;
        EXPECT_FALSE(app.main.loaded || app.compiler.loaded);
    };
    Main(app);
    app.main.btnExit.Click.Fire();
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(app.main.visible);
    EXPECT_FALSE(app.compiler.visible);
}

} // namespace
} // namespace tos
