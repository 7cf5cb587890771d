#pragma once

#include <string>

#include "support/system.h"

namespace tos {

// The program's two forms, for services that act on one of them.
enum class FormId { Main, Compiler, Batch };

enum class MessageIcon { None, Exclamation };

// The boxes of the specified program answer with OK alone; a question whether to
// keep changes offers Save, Discard and Cancel.
enum class MessageButtons { Ok, SaveDiscardCancel };

enum class MessageAnswer { Ok, Save, Discard, Cancel };

inline constexpr const char* kDefaultMessageTitle = "TolvarineObjectScripter";

// A modal box, with one OK button unless buttons says otherwise.
struct MessageBox {
    std::string text;
    std::string title = kDefaultMessageTitle;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
};

// Dialog flag: only the name of an existing file is accepted.
inline constexpr int kFileMustExist = 4096;

struct FileDialogRequest {
    FormId form = FormId::Main;
    std::string title;
    std::string initialFolder;
    std::string filter; // "PRJ File (*.prj)|*.prj"
    int filterIndex = 1;
    bool save = false;
    std::string fileName;
    int flags = 0;
};

// Mouse pointer values of the forms.
inline constexpr int kPointerDefault = 0;
inline constexpr int kPointerHourglass = 11;

struct ScreenSize {
    double widthTwips = 0;
    double heightTwips = 0;
};

// Everything the core asks of the desktop. Qt implements it in the GUI; tests
// use a recording fake.
class Platform {
public:
    virtual ~Platform() = default;

    // Waits until the user has answered.
    virtual void ShowMessage(const MessageBox& box) = 0;

    // A box that asks: waits for the button the user chose. A platform without
    // such boxes shows the text and answers Cancel, so nothing is lost.
    virtual MessageAnswer Ask(const MessageBox& box)
    {
        ShowMessage(box);
        return MessageAnswer::Cancel;
    }

    // Full path of an existing file the user chose, or "" for no choice.
    virtual std::string ShowFileDialog(const FileDialogRequest& request) = 0;

    // The per-user store of remembered folders: "" when missing; a failed write is silent.
    virtual std::string ReadSetting(const std::string& key, const std::string& valueName) = 0;
    virtual void WriteSetting(const std::string& key, const std::string& valueName,
                              const std::string& value) = 0;

    // Opens a document with the desktop's handler; false when that failed.
    virtual bool OpenDocument(const std::string& path) = 0;

    // Folder the running program was started from, without a trailing separator.
    virtual std::string ProgramFolder() = 0;

    virtual void SetMousePointer(FormId form, int pointer) = 0;

    virtual ScreenSize Screen() = 0;
};

} // namespace tos
