#include "win/platform/file_dialog.h"

#include <algorithm>
#include <vector>

namespace tos::win {

namespace {

// Room for a long path; the dialog fails rather than cut a longer one.
constexpr std::size_t kFileBuffer = 32768;

} // namespace

std::string DialogFilter(const std::string& filter)
{
    std::string converted = filter;
    std::replace(converted.begin(), converted.end(), '|', '\0');
    converted.append(2, '\0');
    return converted;
}

std::string ShowFileDialog(HWND owner, const FileDialogRequest& request, const FileDialogCall& show)
{
    const std::string filter = DialogFilter(request.filter);
    std::vector<char> file(kFileBuffer, '\0');
    std::copy_n(request.fileName.begin(), std::min(request.fileName.size(), kFileBuffer - 1),
                file.begin());

    OPENFILENAMEA ofn{};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = owner;
    ofn.lpstrFilter = filter.c_str();
    ofn.nFilterIndex = static_cast<DWORD>(std::max(request.filterIndex, 0));
    ofn.lpstrFile = file.data();
    ofn.nMaxFile = static_cast<DWORD>(file.size());
    ofn.lpstrInitialDir = request.initialFolder.empty() ? nullptr : request.initialFolder.c_str();
    ofn.lpstrTitle = request.title.empty() ? nullptr : request.title.c_str();
    ofn.Flags = static_cast<DWORD>(request.flags);

    // The dialog may move the current directory while the user looks around (Wine moves
    // it to the initial folder at once); only a choice may leave it moved.
    std::vector<char> before(GetCurrentDirectoryA(0, nullptr) + 1, '\0');
    GetCurrentDirectoryA(static_cast<DWORD>(before.size()), before.data());

    BOOL chosen = FALSE;
    if (show)
        chosen = show(ofn);
    else
        chosen = request.save ? GetSaveFileNameA(&ofn) : GetOpenFileNameA(&ofn);
    if (!chosen) {
        SetCurrentDirectoryA(before.data());
        return "";
    }
    return std::string(file.data());
}

} // namespace tos::win
