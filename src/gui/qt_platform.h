#pragma once

#include <QString>
#include <map>

#include "support/platform.h"

class QWidget;

namespace tos::gui {

// "PRJ File (*.prj)|*.prj" as Qt's name filters, one per description/pattern pair.
QStringList QtNameFilters(const std::string& filter);

// Where the remembered folders of a store key live: on Windows the registry path
// under the current user, elsewhere the name of Qt's per-user settings file.
QString SettingsLocation(const std::string& key);

// The platform services over Qt: message boxes, file dialogs, the settings
// store, the desktop's document handler, the wait cursor and the screen.
class QtPlatform : public Platform {
public:
    // The window of each form, as owner of its message boxes and dialogs.
    void SetFormWidget(FormId form, QWidget* widget) { widgets_[form] = widget; }

    void ShowMessage(const MessageBox& box) override;
    MessageAnswer Ask(const MessageBox& box) override;
    std::string ShowFileDialog(const FileDialogRequest& request) override;
    std::string ReadSetting(const std::string& key, const std::string& valueName) override;
    void WriteSetting(const std::string& key, const std::string& valueName,
                      const std::string& value) override;
    bool OpenDocument(const std::string& path) override;
    std::string ProgramFolder() override;
    void SetMousePointer(FormId form, int pointer) override;
    ScreenSize Screen() override;

    // Twips per pixel of the primary screen (1440 to the logical inch).
    static double TwipsPerPixel();

protected:
    QWidget* Owner(FormId form) const;

private:
    std::map<FormId, QWidget*> widgets_;
};

// A length in twips as whole pixels of the primary screen.
int TwipsToPixels(double twips);

// Paths cross to the core in the file system's own encoding, so the core can
// open what the dialog chose.
std::string PathToCore(const QString& path);
QString PathFromCore(const std::string& path);

} // namespace tos::gui
