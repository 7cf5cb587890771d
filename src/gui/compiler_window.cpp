#include "gui/compiler_window.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <string_view>

#include "shell/app.h"

namespace tos::gui {

namespace {

// The core's text is Windows-1252 bytes; only 0x80..0x9F differ from Latin-1.
QString FromWindows1252(std::string_view bytes)
{
    static const char16_t kHigh[32] = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        text.append(QChar(b >= 0x80 && b < 0xA0 ? kHigh[b - 0x80] : char16_t(b)));
    }
    return text;
}

// Twips are 1/1440 of a logical inch.
int TwipsToPixels(int twips, double logicalDpi)
{
    return static_cast<int>(std::lround(twips * logicalDpi / 1440.0));
}

} // namespace

CompilerWindow::CompilerWindow(App& app, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      app_(app)
{
    setObjectName("frmScriptCompiler");
    setWindowTitle(FromWindows1252(app.compiler.caption));
    setSizeGripEnabled(false);
    BuildControls();

    const double dpi = logicalDpiX();
    setFixedSize(TwipsToPixels(app.compiler.widthTwips, dpi),
                 TwipsToPixels(app.compiler.heightTwips, dpi));

    // The model outlives the window in tests; its notifiers must not reach a dead window.
    QPointer<CompilerWindow> self(this);
    app.compiler.formView.Subscribe([self] {
        if (self)
            self->SyncForm();
    });
    app.compiler.lstMaxScripts.view.Subscribe([self] {
        if (self)
            self->SyncList();
    });
    app.compiler.showModal = [self] {
        if (self)
            self->exec();
    };
    SyncForm();
    SyncList();
}

CompilerWindow::~CompilerWindow()
{
    app_.compiler.showModal = nullptr;
}

void CompilerWindow::BuildControls()
{
    CompilerForm& form = app_.compiler;

    frame_ = new QGroupBox(FromWindows1252(form.frameCompiledMaxScript.Caption()), this);
    frame_->setObjectName(QString::fromStdString(form.frameCompiledMaxScript.Name()));

    list_ = new QListWidget(frame_);
    list_->setObjectName(QString::fromStdString(form.lstMaxScripts.Name()));
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setUniformItemSizes(true);
    QFont mono(QString::fromStdString(form.lstMaxScripts.GetFont().name));
    if (form.lstMaxScripts.GetFont().points > 0)
        mono.setPointSize(form.lstMaxScripts.GetFont().points);
    mono.setStyleHint(QFont::TypeWriter);
    list_->setFont(mono);

    auto* frameLayout = new QVBoxLayout(frame_);
    frameLayout->addWidget(list_);

    auto makeButton = [this](Button& model) {
        auto* button = new QPushButton(FromWindows1252(model.Caption()), this);
        button->setObjectName(QString::fromStdString(model.Name()));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [&model] { model.Click.Fire(); });
        return button;
    };
    addFile_ = makeButton(form.btnAddFile);
    saveAs_ = makeButton(form.btnSaveAs);
    done_ = makeButton(form.btnDone);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(addFile_);
    buttons->addWidget(saveAs_);
    buttons->addStretch(1);
    buttons->addWidget(done_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame_, 1);
    layout->addLayout(buttons);

    setTabOrder(done_, list_);
    setTabOrder(list_, addFile_);
    setTabOrder(addFile_, saveAs_);
}

void CompilerWindow::SyncForm()
{
    const CompilerForm& form = app_.compiler;
    if (!form.visible && isVisible())
        hide();
    const double dpi = logicalDpiX();
    move(TwipsToPixels(form.left, dpi), TwipsToPixels(form.top, dpi));
    if (form.mousePointer == kPointerHourglass)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void CompilerWindow::SyncList()
{
    // The list only grows at its end or is cleared, so appending what is new suffices.
    const auto& rows = app_.compiler.lstMaxScripts.Rows();
    const auto count = static_cast<std::size_t>(list_->count());
    if (rows.size() < count)
        list_->clear();
    for (auto i = static_cast<std::size_t>(list_->count()); i < rows.size(); ++i)
        list_->addItem(FromWindows1252(rows[i]));
}

void CompilerWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    app_.compiler.btnDone.Click.Fire();
}

void CompilerWindow::reject()
{
    app_.compiler.btnDone.Click.Fire();
}

} // namespace tos::gui
