#include <gtest/gtest.h>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"
#include "forms/form_routines.h"
#include "shell/startup.h"
#include "support/failure.h"

namespace tos {
namespace {

const std::string kKey = "Software\\Tolvarine Object Scripter";
const std::string kReadFailed = "Unexpected error in GetRegStr \n\n 7 - Out of memory";

// Notes each time start-up asks the platform for something (R read a folder,
// S screen size, ! message) and how far it has come: M main form loaded,
// C combiner loaded, V main form shown.
struct StepLog : test::FakePlatform {
    App& Start() { return Main(app.emplace(*this)), *app; }
    std::string ReadSetting(const std::string& key, const std::string& value) override
    {
        Note("R");
        if (failReads)
            Fail(err::OutOfMemory);
        return FakePlatform::ReadSetting(key, value);
    }
    ScreenSize Screen() override { return Note("S"), screen; }
    void ShowMessage(const MessageBox& box) override { Note("!"), messages.push_back(box); }
    void Note(const char* step)
    {
        steps += step + std::string(app->main.loaded ? "M" : "") +
                 (app->compiler.loaded ? "C" : "") + (app->main.visible ? "V " : " ");
    }
    std::optional<App> app;
    bool failReads = false;
    std::string steps;
};

TEST(Startup, MainRunsItsStepsInOrderAndExitEndsTheRun)
{
    test::ScratchDir folder;
    folder.Write("TolvarineObjectScripter.ini", "[MiscStockObjects]\r\nTotalItems=1\r\n");
    StepLog platform;
    platform.programFolder = folder.Path().string();
    App& app = platform.Start();
    // Each form is placed as it loads; the catalogue speaks over the shown form.
    EXPECT_EQ(platform.steps, "R R R R SM SM SMC SMC !MCV ");
    EXPECT_TRUE(app.main.chkSave.Checked() && app.state.SaveToFile && !app.compiler.visible);
    EXPECT_TRUE(platform.settings.empty()); // nothing is stored until a folder is chosen
    // The first state both windows show: nothing loaded, the grid size locked.
    const MainForm& m = app.main;
    EXPECT_EQ(std::tuple(m.txtProjectFilePath.Enabled(), m.btnProcess.Enabled(),
                         m.txtGridRes.Text(), m.txtObjectScale.Text(), m.txtGridSize.Locked(),
                         m.txtObjectScale.Locked(), m.chkMainTile.Checked(),
                         m.chkInstances.Enabled()),
              std::tuple(false, false, "3.0", "100.000000", true, false, true, false));

    bool ended = false;
    app.endProcess = [&] { ended = !app.main.loaded && !app.compiler.loaded; };
    app.main.btnExit.Click.Fire();
    EXPECT_TRUE(ended && !app.main.visible && !app.compiler.visible);
}

TEST(Startup, RemembersBothFoldersAndPassesOverStoreFailures)
{
    // clang-format off
    const std::tuple<std::string, std::string, bool, std::string> rows[] = {
        // stored DefaultDir  stored ObjectDir  store fails  folders after start-up
        {"/home/u/projects",  "/home/u/max",    false,       "/home/u/projects|/home/u/max"},
        {"",                  "/gone/folder",   false,       "/opt/tos|/gone/folder"},
        {"/home/u/projects",  "/home/u/max",    true,        "/opt/tos|/opt/tos"},
    };
    // clang-format on
    for (const auto& [storedDefault, storedObject, storeFails, folders] : rows) {
        StepLog platform;
        auto& stored = platform.settings;
        stored = {{{kKey, "DefaultDir"}, storedDefault}, {{kKey, "ObjectDir"}, storedObject}};
        platform.failReads = platform.failSettingWrites = storeFails;
        App& app = platform.Start();
        EXPECT_EQ(app.state.DefaultDir + "|" + app.state.ObjectDir, folders);
        // Both are written on every save, the unchanged one too; a failed write is silent.
        app.state.ObjectDir = "/new";
        SaveSettings(app);
        EXPECT_EQ(stored[std::pair(kKey, "DefaultDir")] + "|" +
                      stored[std::pair(kKey, "ObjectDir")],
                  storeFails ? storedDefault + "|" + storedObject : app.state.DefaultDir + "|/new");
        EXPECT_EQ(platform.Texts(), std::vector<std::string>(storeFails ? 2 : 0, kReadFailed));
    }
}

TEST(Startup, CentringPutsEachFormInTheMiddleOrAtTheEdge)
{
    // clang-format off
    const std::tuple<double, double, int, int, int, int> rows[] = {
        // screen width, height  main form: left, top   combiner: left, top
        {19200, 10800,           5152,  1875,           6592,  2737},
        {8895,  7051,            0,     0,              1440,  863},  // room of 0 and of 1 twip
        {40000, 20000,           0,     6475,           0,     7337}, // width past 16 bits
        {32767, 32768,           11936, 0,              13376, 0},
    };
    // clang-format on
    for (const auto& [width, height, mainLeft, mainTop, left, top] : rows) {
        StepLog platform;
        platform.screen = {width, height};
        const App& app = platform.Start();
        EXPECT_EQ(std::tuple(app.main.left, app.main.top, app.compiler.left, app.compiler.top),
                  std::tuple(mainLeft, mainTop, left, top));
    }
}

} // namespace
} // namespace tos
