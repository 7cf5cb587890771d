#pragma once

#include <vector>

#include "support/platform.h"

namespace tos {

// Stands between the program and the desktop and passes every service through,
// except that while a recording is open the message boxes are kept instead of
// shown: a long unattended run lists them at its end rather than stopping at each.
class RecordingPlatform : public Platform {
public:
    explicit RecordingPlatform(Platform& inner) : inner_(inner) {}

    // Boxes from now on are kept, not shown.
    void StartRecording();
    // Ends the recording and hands over the boxes kept since it started.
    std::vector<MessageBox> StopRecording();
    bool Recording() const { return recording_; }

    void ShowMessage(const MessageBox& box) override;
    MessageAnswer Ask(const MessageBox& box) override { return inner_.Ask(box); }
    std::string ShowFileDialog(const FileDialogRequest& request) override;
    std::string ReadSetting(const std::string& key, const std::string& valueName) override;
    void WriteSetting(const std::string& key, const std::string& valueName,
                      const std::string& value) override;
    bool OpenDocument(const std::string& path) override;
    std::string ProgramFolder() override;
    void SetMousePointer(FormId form, int pointer) override;
    ScreenSize Screen() override;

private:
    Platform& inner_;
    bool recording_ = false;
    std::vector<MessageBox> kept_;
};

} // namespace tos
