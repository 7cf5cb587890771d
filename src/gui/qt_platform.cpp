#include "gui/qt_platform.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QUrl>

#include <cmath>

#include "gui/cp1252.h"

namespace tos::gui {

namespace {

constexpr double kTwipsPerInch = 1440.0;

std::unique_ptr<QSettings> OpenStore(const std::string& key)
{
#ifdef Q_OS_WIN
    return std::make_unique<QSettings>(SettingsLocation(key), QSettings::NativeFormat);
#else
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                       SettingsLocation(key));
#endif
}

} // namespace

QStringList QtNameFilters(const std::string& filter)
{
    const QStringList parts = FromCp1252(filter).split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString& description = parts[i];
        QString patterns = parts[i + 1];
        patterns.replace(u';', u' ');
        // Qt reads the patterns from the last parentheses; most descriptions
        // already end with them.
        const QString bracketed = QStringLiteral("(") + patterns + QStringLiteral(")");
        if (description.endsWith(bracketed))
            filters << description;
        else
            filters << description + QStringLiteral(" ") + bracketed;
    }
    return filters;
}

QString SettingsLocation(const std::string& key)
{
    const QString path = FromCp1252(key);
#ifdef Q_OS_WIN
    return QStringLiteral("HKEY_CURRENT_USER\\") + path;
#else
    // "Software\Name" becomes the settings file "Name".
    QString name = path;
    if (name.startsWith(QStringLiteral("Software\\"), Qt::CaseInsensitive))
        name = name.mid(9);
    return name.replace(u'\\', u'/');
#endif
}

std::string PathToCore(const QString& path)
{
    return QFile::encodeName(QDir::toNativeSeparators(path)).toStdString();
}

QString PathFromCore(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

QWidget* QtPlatform::Owner(FormId form) const
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    const auto it = widgets_.find(form);
    return it == widgets_.end() ? nullptr : it->second;
}

void QtPlatform::ShowMessage(const MessageBox& box)
{
    const auto icon =
        box.icon == MessageIcon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon;
    QWidget* owner = QApplication::activeModalWidget();
    if (!owner)
        owner = Owner(FormId::Main);
    QMessageBox message(icon, FromCp1252(box.title), FromCp1252(box.text), QMessageBox::Ok, owner);
    message.setTextFormat(Qt::PlainText);
    message.exec();
}

MessageAnswer QtPlatform::Ask(const MessageBox& box)
{
    QWidget* owner = QApplication::activeModalWidget();
    if (!owner)
        owner = Owner(FormId::Main);
    QMessageBox message(QMessageBox::Question, FromCp1252(box.title), FromCp1252(box.text),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, owner);
    message.setTextFormat(Qt::PlainText);
    message.setDefaultButton(QMessageBox::Save);
    switch (message.exec()) {
    case QMessageBox::Save:
        return MessageAnswer::Save;
    case QMessageBox::Discard:
        return MessageAnswer::Discard;
    default:
        return MessageAnswer::Cancel;
    }
}

std::string QtPlatform::ShowFileDialog(const FileDialogRequest& request)
{
    QFileDialog dialog(Owner(request.form), FromCp1252(request.title),
                       PathFromCore(request.initialFolder));
    const QStringList filters = QtNameFilters(request.filter);
    dialog.setNameFilters(filters);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
        dialog.selectNameFilter(filters[request.filterIndex - 1]);
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    if (request.flags & kFileMustExist) {
        dialog.setFileMode(QFileDialog::ExistingFile);
        // Desktop dialogs do not all refuse a new name in the save form; Qt's own does.
        if (request.save)
            dialog.setOption(QFileDialog::DontUseNativeDialog);
    }
    if (!request.fileName.empty())
        dialog.selectFile(PathFromCore(request.fileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return "";
    const QFileInfo chosen(dialog.selectedFiles().constFirst());
    if ((request.flags & kFileMustExist) && !chosen.isFile())
        return "";
    return PathToCore(chosen.absoluteFilePath());
}

std::string QtPlatform::ReadSetting(const std::string& key, const std::string& valueName)
{
    const auto store = OpenStore(key);
    return ToCp1252(store->value(FromCp1252(valueName)).toString());
}

void QtPlatform::WriteSetting(const std::string& key, const std::string& valueName,
                              const std::string& value)
{
    const auto store = OpenStore(key);
    store->setValue(FromCp1252(valueName), FromCp1252(value));
    store->sync();
}

bool QtPlatform::OpenDocument(const std::string& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(PathFromCore(path)));
}

std::string QtPlatform::ProgramFolder()
{
    return PathToCore(QCoreApplication::applicationDirPath());
}

// The pointer belongs to the form's own window, so the boxes and dialogs it
// shows while it works keep the normal pointer.
void QtPlatform::SetMousePointer(FormId form, int pointer)
{
    const auto it = widgets_.find(form);
    if (it == widgets_.end() || !it->second)
        return;
    if (pointer == kPointerHourglass)
        it->second->setCursor(Qt::WaitCursor);
    else
        it->second->unsetCursor();
}

double QtPlatform::TwipsPerPixel()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dpi = screen ? screen->logicalDotsPerInch() : 96.0;
    return dpi > 0 ? kTwipsPerInch / dpi : 15.0;
}

int TwipsToPixels(double twips)
{
    return static_cast<int>(std::lround(twips / QtPlatform::TwipsPerPixel()));
}

ScreenSize QtPlatform::Screen()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return {};
    const QSize size = screen->size();
    const double tpp = TwipsPerPixel();
    return {size.width() * tpp, size.height() * tpp};
}

} // namespace tos::gui
