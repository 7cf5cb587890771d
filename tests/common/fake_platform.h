#pragma once

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/platform.h"

namespace tos::test {

// Records every message box and pointer change; answers dialogs from a queue.
class FakePlatform : public Platform {
public:
    void ShowMessage(const MessageBox& box) override { messages.push_back(box); }
    // Kept with the boxes; answers from the queue, Discard when it is empty.
    MessageAnswer Ask(const MessageBox& box) override;
    std::string ShowFileDialog(const FileDialogRequest& request) override;
    std::string ReadSetting(const std::string& key, const std::string& valueName) override;
    void WriteSetting(const std::string& key, const std::string& valueName,
                      const std::string& value) override;
    bool OpenDocument(const std::string& path) override;
    std::string ProgramFolder() override { return programFolder; }
    void SetMousePointer(FormId form, int pointer) override;
    ScreenSize Screen() override { return screen; }

    // Texts of the boxes shown so far, in order.
    std::vector<std::string> Texts() const;
    void ClearMessages() { messages.clear(); }

    std::vector<MessageBox> messages;
    std::vector<FileDialogRequest> dialogRequests;
    std::deque<std::string> dialogAnswers; // "" answers as Cancel; empty queue cancels
    std::deque<MessageAnswer> answers;
    std::map<std::pair<std::string, std::string>, std::string> settings;
    bool failSettingWrites = false;
    std::vector<std::string> openedDocuments;
    bool openSucceeds = true;
    std::string programFolder = "/opt/tos";
    std::vector<std::pair<FormId, int>> pointerChanges;
    ScreenSize screen{19200, 10800};
};

} // namespace tos::test
