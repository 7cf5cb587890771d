#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <functional>
#include <string>
#include <thread>

#include "common/scratch.h"

#include "win/platform/file_dialog.h"

#include <dlgs.h>

namespace tos::win {
namespace {

TEST(DialogFilter, BarsBecomeZerosWithTwoAtTheEnd)
{
    struct Row {
        std::string filter;
        std::string api;
    };
    using namespace std::string_literals;
    const Row rows[] = {
        {.filter = "PRJ File (*.prj)|*.prj", .api = "PRJ File (*.prj)\0*.prj\0\0"s},
        {.filter = "MS File (*.ms)|*.ms|All (*.*)|*.*",
         .api = "MS File (*.ms)\0*.ms\0All (*.*)\0*.*\0\0"s},
        {.filter = "", .api = "\0\0"s},
    };
    for (const Row& row : rows)
        EXPECT_EQ(DialogFilter(row.filter), row.api) << row.filter;
}

FileDialogRequest ProjectRequest()
{
    FileDialogRequest request;
    request.title = "Open Tolvarine Project File (PRJ)";
    request.initialFolder = "C:\\Projects";
    request.filter = "PRJ File (*.prj)|*.prj";
    request.filterIndex = 1;
    request.fileName = "Start.prj";
    request.flags = kFileMustExist;
    return request;
}

TEST(ShowFileDialog, HandsTheRequestToTheDialogAsTheApiWantsIt)
{
    OPENFILENAMEA seen{};
    std::string filter, startName, title, initialDir;
    const auto answer = [&](OPENFILENAMEA& ofn) {
        seen = ofn;
        title = ofn.lpstrTitle;
        initialDir = ofn.lpstrInitialDir;
        filter.assign(ofn.lpstrFilter, DialogFilter("PRJ File (*.prj)|*.prj").size());
        startName = ofn.lpstrFile;
        std::strcpy(ofn.lpstrFile, "C:\\Projects\\Valley.prj");
        return TRUE;
    };
    const HWND owner = reinterpret_cast<HWND>(0x1234);
    EXPECT_EQ(ShowFileDialog(owner, ProjectRequest(), answer), "C:\\Projects\\Valley.prj");
    EXPECT_EQ(seen.hwndOwner, owner);
    EXPECT_EQ(title, "Open Tolvarine Project File (PRJ)");
    EXPECT_EQ(initialDir, "C:\\Projects");
    EXPECT_EQ(filter, DialogFilter("PRJ File (*.prj)|*.prj"));
    EXPECT_EQ(seen.nFilterIndex, 1u);
    EXPECT_EQ(startName, "Start.prj");
    // Nothing but "file must exist": so the dialog changes the current directory.
    EXPECT_EQ(seen.Flags, static_cast<DWORD>(OFN_FILEMUSTEXIST));
}

TEST(ShowFileDialog, CancelGivesNoChoice)
{
    const auto cancel = [](OPENFILENAMEA& ofn) {
        std::strcpy(ofn.lpstrFile, "C:\\typed but cancelled.prj");
        return FALSE;
    };
    EXPECT_EQ(ShowFileDialog(nullptr, ProjectRequest(), cancel), "");
}

// The system's own dialog, answered by a second thread as a user would answer it.
std::string AnswerSystemDialog(const FileDialogRequest& request,
                               const std::function<void(HWND)>& answer)
{
    std::atomic<bool> closed{false};
    std::thread user([&] {
        for (int i = 0; i < 1000 && !closed; ++i) {
            if (HWND dialog = FindWindowA(nullptr, request.title.c_str())) {
                Sleep(300); // let it finish setting itself up
                answer(dialog);
                return;
            }
            Sleep(20);
        }
    });
    const std::string chosen = ShowFileDialog(nullptr, request);
    closed = true;
    user.join();
    return chosen;
}

std::string CurrentDirectory()
{
    char folder[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, folder);
    return folder;
}

TEST(ShowFileDialog, TheSystemDialogChangesTheCurrentDirectoryOnlyForAChoice)
{
    test::ScratchDir dir;
    const std::string project = dir.Write("Valley.prj", "");
    const std::string before = CurrentDirectory();
    FileDialogRequest request = ProjectRequest();
    request.initialFolder = dir.Path().string();
    request.fileName = "";
    // A title of its own, so no other test's dialog gets this test's answers.
    request.title = "File dialog test " + std::to_string(GetCurrentProcessId());

    const auto cancel = [](HWND dialog) { PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); };
    EXPECT_EQ(AnswerSystemDialog(request, cancel), "");
    EXPECT_EQ(CurrentDirectory(), before);

    const auto choose = [](HWND dialog) {
        SetDlgItemTextA(dialog, cmb13, "Valley.prj");
        SetDlgItemTextA(dialog, edt1, "Valley.prj");
        PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    };
    const std::string chosen = AnswerSystemDialog(request, choose);
    const std::string after = CurrentDirectory();
    SetCurrentDirectoryA(before.c_str());
    EXPECT_EQ(lstrcmpiA(chosen.c_str(), project.c_str()), 0) << chosen;
    EXPECT_EQ(lstrcmpiA(after.c_str(), dir.Path().string().c_str()), 0) << after;
}

} // namespace
} // namespace tos::win
