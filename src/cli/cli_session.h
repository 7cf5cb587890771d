#pragma once

#include <deque>
#include <optional>
#include <string>

#include "cli/command_context.h"
#include "support/platform.h"

namespace CLI {
class App;
}

namespace tos {
struct App;
}

namespace tos::cli {

// The desktop as a command-line tool sees it. Every message box becomes one line
// on the error stream ("title: text", each line feed written as the two
// characters \n) and is counted; file dialogs answer from a queue; the
// remembered folders read as "" and are never written.
class CliPlatform : public Platform {
public:
    explicit CliPlatform(CommandContext& context);

    // The next file dialog answers path; an empty queue (or "") is a Cancel.
    void QueueDialogAnswer(std::string path);
    int MessageCount() const { return messageCount_; }

    void ShowMessage(const MessageBox& box) override;
    std::string ShowFileDialog(const FileDialogRequest& request) override;
    std::string ReadSetting(const std::string& key, const std::string& valueName) override;
    void WriteSetting(const std::string& key, const std::string& valueName,
                      const std::string& value) override;
    bool OpenDocument(const std::string& path) override;
    std::string ProgramFolder() override;
    void SetMousePointer(FormId form, int pointer) override;
    ScreenSize Screen() override;

private:
    CommandContext& context_;
    std::deque<std::string> dialogAnswers_;
    int messageCount_ = 0;
};

// The options shared by every sub-command that loads a project.
struct LoadOptions {
    std::string project;                    // as given; "" counts as a cancelled dialog
    bool perimeter = false;                 // load the perimeter tiles instead of the main tile
    std::optional<std::string> objectScale; // text for txtObjectScale
    std::optional<std::string> gridSize;    // text for txtGridSize (object scale then follows)
    std::string iniFile;                    // stock catalogue file; "" = beside the program
};

// Adds PROJECT, --perimeter, --object-scale, --grid-size and --ini to a
// sub-command. The two scale options exclude each other; a repeated option
// keeps its last value.
void AddLoadOptions(CLI::App& sub, LoadOptions& options);

// --style and --instances: the two boxes of the script style, as a user ticks them.
struct StyleOptions {
    std::string style = "classic"; // or "max2008", any case
    bool instances = false;
};

// Adds --style and --instances; --instances without --style max2008 is a usage error.
void AddStyleOptions(CLI::App& sub, StyleOptions& options);

// Ticks chkMax2008 and chkInstances as the options say.
void ApplyStyleOptions(tos::App& app, const StyleOptions& options);

// A path as the dialog answers it: a relative path gets the current folder and a
// separator in front, and nothing else changes; "" stays "" (a Cancel).
std::string AbsolutePath(const std::string& path);

// Does what a user at the form would: starts the program, sets the tile choice
// and the scale or grid size as given, then loads the project through the
// browse button with the dialog answering the project's path. Returns the exit
// status so far: kExitMessages when any message box was shown, else kExitOk.
int StartAndLoad(tos::App& app, CliPlatform& platform, const LoadOptions& options);

// The exit status that the messages shown so far give.
int ExitStatus(const CliPlatform& platform);

} // namespace tos::cli
