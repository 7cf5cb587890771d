#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "win/platform/file_dialog.h"

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
        SetCurrentDirectoryA("C:\\"); // where the user looked
        return TRUE;
    };
    const HWND owner = reinterpret_cast<HWND>(0x1234);
    const auto before = std::filesystem::current_path();
    EXPECT_EQ(ShowFileDialog(owner, ProjectRequest(), answer), "C:\\Projects\\Valley.prj");
    // A choice leaves the current directory where the dialog moved it.
    EXPECT_EQ(std::filesystem::current_path(), std::filesystem::path("C:\\"));
    std::filesystem::current_path(before);
    EXPECT_EQ(seen.hwndOwner, owner);
    EXPECT_EQ(title, "Open Tolvarine Project File (PRJ)");
    EXPECT_EQ(initialDir, "C:\\Projects");
    EXPECT_EQ(filter, DialogFilter("PRJ File (*.prj)|*.prj"));
    EXPECT_EQ(seen.nFilterIndex, 1u);
    EXPECT_EQ(startName, "Start.prj");
    // Nothing but "file must exist": so the dialog changes the current directory.
    EXPECT_EQ(seen.Flags, static_cast<DWORD>(OFN_FILEMUSTEXIST));
    // Cancel gives no choice, whatever the user had typed, and the current directory
    // back from where the dialog had looked.
    const auto cancel = [](OPENFILENAMEA& ofn) {
        std::strcpy(ofn.lpstrFile, "C:\\typed but cancelled.prj");
        SetCurrentDirectoryA("C:\\");
        return FALSE;
    };
    EXPECT_EQ(ShowFileDialog(nullptr, ProjectRequest(), cancel), "");
    EXPECT_EQ(std::filesystem::current_path(), before);
}

} // namespace
} // namespace tos::win
