#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "hostile_case.h"

namespace tos::test {

const std::string kLook = "LookVector=0,0,-1\r\nUpVector=0,1,0\r\n";
const std::string kModel1 = "[Model1]\r\nSLT=Barn.SLT\r\nPosition=1920,4,2000\r\n" + kLook;
const std::string kNoCount = "Error reading NumberOfStaticModels in SCN file.";
const Rows kNoEnvironment = {
    "Cannot determine TerrainWidth value from project files.  Using default...",
    "Cannot determine TerrainWidthScale value from project files.  Using default..."};

std::string Counted(const std::string& count)
{
    return "[Environment]\r\nTerrainWidth=5\r\nTerrainWidthScale=3.0\r\n"
           "[StaticModels]\r\nNumberOfStaticModels=" +
           count + "\r\n";
}

Step WriteScene(std::string text)
{
    return [text](LoadFixture& fx) { fx.dir.Write("Scene.scn", text); };
}

std::string NulScene()
{
    using std::string_literals::operator""s;
    return "[Environment]\r\nTerrainWidth=5\0junk\r\nTerrainWidthScale=3.0\r\n"
           "[StaticModels]\r\nNumberOfStaticModels=1\0\r\n[Model1]\r\n"
           "SL\0T=Hidden.SLT\r\nSLT=Ba\0rn.SLT\r\nPosition=1920,4,2000\r\n"s +
           kLook;
}
const std::string kNulObject("Ba\0rn", 5);
const Rows kBadFileName = {"Unexpected error in BuildScript \n\n 52 - Bad file name or number"};

namespace {

namespace fs = std::filesystem;

const std::string kRange = "GetElement:  6 - 0";

// Writes a scene of about `megabytes` MB without holding it in memory: one section of
// filler lines, then one model.
void WriteHugeScene(const std::string& path, int megabytes)
{
    std::ofstream out(path, std::ios::binary);
    out << Counted("1") << "[Filler]\r\n";
    std::string block;
    for (int i = 0; i < 10000; ++i)
        block += "Key" + std::to_string(i) + "=0123456789012345678901234567890123456789\r\n";
    for (std::size_t written = 0; written < std::size_t(megabytes) << 20; written += block.size())
        out << block;
    out << kModel1;
}

// Loads the case's scene, then processes its first object row, if it has one.
void LoadAndProcess(const HostileCase& c, LoadFixture& fx)
{
    MainForm& f = fx.app->main;
    c.makeScene(fx);
    const std::string scn = fx.dir.File("Scene.scn");
    auto placed = [&](Rows rows) {
        for (std::string& r : rows)
            if (const auto at = r.find("%scn"); at != std::string::npos)
                r.replace(at, 4, scn);
        return rows;
    };
    fx.platform.dialogAnswers.push_back(fx.dir.Write("Scene.prj", ""));
    f.btnBrowseProjectFile.Click.Fire();
    EXPECT_EQ(fx.Messages(), placed(c.loadMessages));
    EXPECT_EQ(f.comboSelectObject.Items().Rows(), c.objects);
    if (c.objects.empty())
        return;

    fx.platform.ClearMessages();
    if (c.beforeProcess)
        c.beforeProcess(fx);
    f.txtMaxFile.SetText("C:\\Models\\Barn.max");
    f.txtMaxObjectName.SetText("Obj");
    f.comboSelectObject.SetText(c.objects.front());
    f.btnProcess.Click.Fire();
    EXPECT_EQ(fx.Messages(), placed(c.processMessages));
    // The whole script stands in the list, whatever became of the file.
    const Rows& script = f.List2.Rows();
    std::string pos = "$Obj.pos = [";
    for (std::string_view rest = c.placed; !rest.empty();) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        pos += std::string(rest.substr(0, comma)) + ".000000" + (comma < rest.size() ? "," : "]");
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    EXPECT_NE(std::find(script.begin(), script.end(), pos), script.end()) << pos;
    EXPECT_NE(std::find(script.begin(), script.end(),
                        "-- go back and rotate first object (if necessary)"),
              script.end());
    std::error_code tooLong;
    EXPECT_EQ(fs::exists(fx.app->state.ScriptFileName, tooLong), c.saved);
}

TEST(HostileInput, EachEndsInItsMessages)
{
    const std::string lost =
        "Unexpected error in GetINIString for file: %scn  \nFile not found ( 53)";
    const std::string longKey = "K" + std::string(10 << 20, 'x') + "=1\r\n";
    // Larger than the system's reader takes, so this program's own reader answers.
    std::string filler;
    for (int line = 0; line < 7000; ++line)
        filler += "; filler\r\n";
    // clang-format off
    std::vector<HostileCase> cases = {
        {"100 MB scene", [](LoadFixture& fx) { WriteHugeScene(fx.dir.File("Scene.scn"), 100); },
         {}, {"Barn"}, {}, {}, "80,0,4", true},
        {"10 MB line",
         WriteScene(Counted("1") + "[Model1]\r\n" + longKey + kModel1.substr(10)),
         // Each read in Model1 walks past the line: SLT six times, Position once.
         Rows(7, kRange), {"Barn"}, {},
         // Position, then LookVector and UpVector of the first object's turn.
         Rows(3, kRange), "80,0,4", true},
        // Nothing may be written under the name cut short at the NUL either.
        {"NUL in keys and values, large scene", WriteScene(filler + NulScene()), {},
         {kNulObject}, {}, kBadFileName, "80,0,4", false},
        // The script's name, Scene_Main_ and 245 letters, is longer than a file's may be.
        {"object name too long for a file",
         WriteScene(Counted("1") + "[Model1]\r\nSLT=" + std::string(245, 'x') +
                    ".SLT\r\nPosition=1920,4,2000\r\n" + kLook),
         {}, {std::string(245, 'x')}, {}, kBadFileName, "80,0,4", false},
        {"scene is a folder",
         [](LoadFixture& fx) { fs::create_directory(fx.dir.File("Scene.scn")); },
         {"No SCN file found!!"}, {}, {}, {}, "", false},
        {"scene deleted before Process", WriteScene(Counted("1") + kModel1), {}, {"Barn"},
         [](LoadFixture& fx) { fs::remove(fx.dir.File("Scene.scn")); },
         // Position, LookVector, UpVector; then no turn can be worked out of nothing.
         {lost, lost, lost, "Unexpected error in CalculateAngles_NegZ for Model1:  Overflow ( 6)",
          "LookX = 0  LookY = 0  LookZ = 0"}, "-1920,1920,0", true},
        {"scene rewritten before Process", WriteScene(Counted("1") + kModel1), {}, {"Barn"},
         WriteScene(filler + "[Model1]\r\nPosition=1000,4,2000\r\n" + kLook),
         {}, "80,920,4", true},
    };
    // clang-format on
    const std::vector<HostileCase> more = PlatformCases();
    cases.insert(cases.end(), more.begin(), more.end());
    for (const HostileCase& c : cases) {
        SCOPED_TRACE(c.what);
        LoadFixture fx;
        LoadAndProcess(c, fx);
        if (c.cleanUp)
            c.cleanUp(fx);
    }
    // The 100 MB scene is held once, with room for the test's own copies.
    EXPECT_LT(PeakMegabytes(), 1024);
}

} // namespace
} // namespace tos::test
