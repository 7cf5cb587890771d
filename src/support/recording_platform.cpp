#include "support/recording_platform.h"

#include <utility>

namespace tos {

void RecordingPlatform::StartRecording()
{
    recording_ = true;
    kept_.clear();
}

std::vector<MessageBox> RecordingPlatform::StopRecording()
{
    recording_ = false;
    return std::exchange(kept_, {});
}

void RecordingPlatform::ShowMessage(const MessageBox& box)
{
    if (recording_)
        kept_.push_back(box);
    else
        inner_.ShowMessage(box);
}

std::string RecordingPlatform::ShowFileDialog(const FileDialogRequest& request)
{
    return inner_.ShowFileDialog(request);
}

std::string RecordingPlatform::ReadSetting(const std::string& key, const std::string& valueName)
{
    return inner_.ReadSetting(key, valueName);
}

void RecordingPlatform::WriteSetting(const std::string& key, const std::string& valueName,
                                     const std::string& value)
{
    inner_.WriteSetting(key, valueName, value);
}

bool RecordingPlatform::OpenDocument(const std::string& path)
{
    return inner_.OpenDocument(path);
}

std::string RecordingPlatform::ProgramFolder()
{
    return inner_.ProgramFolder();
}

void RecordingPlatform::SetMousePointer(FormId form, int pointer)
{
    inner_.SetMousePointer(form, pointer);
}

ScreenSize RecordingPlatform::Screen()
{
    return inner_.Screen();
}

} // namespace tos
