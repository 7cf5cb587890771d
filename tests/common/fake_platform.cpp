#include "common/fake_platform.h"

namespace tos::test {

MessageAnswer FakePlatform::Ask(const MessageBox& box)
{
    messages.push_back(box);
    if (answers.empty())
        return MessageAnswer::Discard;
    const MessageAnswer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::string FakePlatform::ShowFileDialog(const FileDialogRequest& request)
{
    dialogRequests.push_back(request);
    if (dialogAnswers.empty())
        return "";
    std::string answer = dialogAnswers.front();
    dialogAnswers.pop_front();
    return answer;
}

std::string FakePlatform::ReadSetting(const std::string& key, const std::string& valueName)
{
    auto it = settings.find({key, valueName});
    return it == settings.end() ? "" : it->second;
}

void FakePlatform::WriteSetting(const std::string& key, const std::string& valueName,
                                const std::string& value)
{
    if (!failSettingWrites)
        settings[{key, valueName}] = value;
}

bool FakePlatform::OpenDocument(const std::string& path)
{
    openedDocuments.push_back(path);
    return openSucceeds;
}

void FakePlatform::SetMousePointer(FormId form, int pointer)
{
    pointerChanges.emplace_back(form, pointer);
}

std::vector<std::string> FakePlatform::Texts() const
{
    std::vector<std::string> texts;
    for (const auto& m : messages)
        texts.push_back(m.text);
    return texts;
}

} // namespace tos::test
