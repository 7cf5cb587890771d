// The whole project load on any scene and catalogue bytes, then Process for every row
// of the object list, in both tile modes, with a recording platform.
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "forms/app.h"
#include "fuzz_support.h"
#include "shell/startup.h"
#include "support/conversions.h"
#include "support/profile.h"

namespace {

using namespace tos;
using tos::fuzz::Require;

constexpr std::size_t kMaxScene = 64 * 1024;
constexpr std::size_t kLargeFile = 65535;

// The failure number a trap message names: "... (N)" or "...\n\nN - description".
int TrapNumber(const std::string& text)
{
    if (text.ends_with(")")) {
        const std::size_t open = text.rfind('(');
        return static_cast<int>(TextToNumber(text.substr(open + 1)));
    }
    const std::size_t lines = text.rfind("\n\n");
    return lines == std::string::npos ? -1 : static_cast<int>(TextToNumber(text.substr(lines)));
}

// Every file the load reads is there, so no file failure may come up; scene content can
// only lead to range, argument and division failures, the catalogue to a double, and a
// NUL byte in an object's name, or a name too long for a file, to a script name no file
// can have.
void CheckMessages(const test::FakePlatform& platform, bool badFileName)
{
    for (const MessageBox& m : platform.messages) {
        if (!m.text.starts_with("Unexpected error in "))
            continue;
        const int n = TrapNumber(m.text);
        Require(n == 5 || n == 6 || n == 11 || n == 457 || (n == 52 && badFileName),
                "only failures scene content can cause", m.text);
    }
}

// Start-up reads the catalogue's items one by one up to TotalItems and shows a message
// for each one missing. A count in the millions is that many messages, slow but no
// hang, so the fuzzer leaves such catalogues out rather than time out on them.
bool LongCatalogueWalk(const std::string& ini)
{
    test::FakePlatform quiet;
    ProfileFiles profiles(quiet);
    return TextToNumber(profiles.GetINIString("MiscStockObjects", "TotalItems", ini)) > 4096;
}

std::string CrLfJoined(const std::vector<std::string>& rows)
{
    std::string all;
    for (const std::string& r : rows)
        all += r + "\r\n";
    return all;
}

// Whether no file can have the script's name: it holds a NUL byte, or its last part is
// longer than file systems allow.
bool NoFileName(const std::string& scriptFile)
{
    constexpr std::size_t kLongestName = 255;
    return scriptFile.find('\0') != std::string::npos ||
           std::filesystem::path(scriptFile).filename().string().size() > kLongestName;
}

// Returns whether a processed row could name no file.
bool ProcessEveryRow(App& app, test::FakePlatform& platform)
{
    MainForm& f = app.main;
    const std::vector<std::string> rows = f.comboSelectObject.Items().Rows();
    bool badFileName = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::size_t before = platform.messages.size();
        f.txtMaxFile.SetText("C:\\Models\\Fuzz.max");
        f.txtMaxObjectName.SetText("Fuzz");
        f.comboSelectObject.SetText(rows[i]);
        f.btnProcess.Click.Fire();
        Require(f.mousePointer == kPointerDefault, "the pointer comes back");
        badFileName = badFileName || NoFileName(app.state.ScriptFileName);
        if (platform.messages.size() == before && app.state.SaveToFile) {
            Require(fuzz::ReadFileBytes(app.state.ScriptFileName) == CrLfJoined(f.List2.Rows()),
                    "the saved script is the list", app.state.ScriptFileName);
        }
    }
    return badFileName;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::TailReader in(data, size);
    const std::uint8_t flags = in.Byte();
    const std::string catalogue(in.Bytes(in.Byte()));
    std::string scene(in.Rest());
    if (scene.size() > kMaxScene)
        return -1;
    if (flags & 1) {
        // Behind a long line before any section, the scene goes to the large-file reader.
        static const std::string padding = std::string(kLargeFile, 'p') + "\r\n";
        scene = padding + scene;
    }

    test::FakePlatform platform;
    platform.programFolder = fuzz::ScratchFolder();
    const std::string ini = fuzz::WriteScratchFile("Catalogue.ini", catalogue);
    const std::string prj = fuzz::WriteScratchFile("Scene.prj", "");
    fuzz::WriteScratchFile("Scene.scn", scene);
    if (LongCatalogueWalk(ini))
        return -1;

    App app(platform);
    Main(app, StartOptions{ini});
    MainForm& f = app.main;
    // Saving costs a file a row; the fuzzer finds the runs that save.
    f.chkSave.SetValue(flags & 8 ? 1 : 0);
    if (flags & 2) {
        f.chkUseObjectScale.SetValue(0);
        f.txtGridSize.SetText(flags & 4 ? "700" : "0");
        f.txtGridSize.LostFocus.Fire();
    }
    bool badFileName = false;
    for (const bool perimeter : {false, true}) {
        f.chkPerimeterTile.SetValue(perimeter ? 1 : 0);
        platform.dialogAnswers.push_back(prj);
        f.btnBrowseProjectFile.Click.Fire();
        Require(f.mousePointer == kPointerDefault, "the pointer comes back after a load");
        badFileName = ProcessEveryRow(app, platform) || badFileName;
    }
    CheckMessages(platform, badFileName);
    return 0;
}
