#include "gui/compiler_window.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

#include "gui/cp1252.h"
#include "gui/qt_platform.h"
#include "shell/app.h"

namespace tos::gui {

namespace {

int TwipsToPixels(int twips)
{
    return static_cast<int>(std::lround(twips / QtPlatform::TwipsPerPixel()));
}

} // namespace

CompilerWindow::CompilerWindow(App& app, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      app_(app)
{
    setObjectName("frmScriptCompiler");
    setWindowTitle(FromCp1252(app.compiler.caption));
    setSizeGripEnabled(false);
    BuildControls();

    setFixedSize(TwipsToPixels(app.compiler.widthTwips), TwipsToPixels(app.compiler.heightTwips));

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

    auto makeButton = [this](Button& model) {
        auto* button = new QPushButton(FromCp1252(model.Caption()), this);
        button->setObjectName(QString::fromStdString(model.Name()));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [&model] { model.Click.Fire(); });
        return button;
    };

    // Creation order is the tab order: Done, the list, Add File, Save As.
    done_ = makeButton(form.btnDone);
    frame_ = new QGroupBox(FromCp1252(form.frameCompiledMaxScript.Caption()), this);
    frame_->setObjectName(QString::fromStdString(form.frameCompiledMaxScript.Name()));

    list_ = new QListWidget(frame_);
    list_->setObjectName(QString::fromStdString(form.lstMaxScripts.Name()));
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setUniformItemSizes(true);
    // Where the named face is missing, the desktop's fixed-pitch face stands in.
    QFont mono;
    mono.setFamilies({QString::fromStdString(form.lstMaxScripts.GetFont().name), "monospace"});
    if (form.lstMaxScripts.GetFont().points > 0)
        mono.setPointSize(form.lstMaxScripts.GetFont().points);
    mono.setStyleHint(QFont::TypeWriter);
    list_->setFont(mono);

    auto* frameLayout = new QVBoxLayout(frame_);
    frameLayout->addWidget(list_);

    addFile_ = makeButton(form.btnAddFile);
    saveAs_ = makeButton(form.btnSaveAs);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(addFile_);
    buttons->addWidget(saveAs_);
    buttons->addStretch(1);
    buttons->addWidget(done_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame_, 1);
    layout->addLayout(buttons);
}

void CompilerWindow::SyncForm()
{
    const CompilerForm& form = app_.compiler;
    if (!form.visible && isVisible())
        hide();
    move(TwipsToPixels(form.left), TwipsToPixels(form.top));
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
        list_->addItem(FromCp1252(rows[i]));
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
