#include "gui/compiler_window.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/control_views.h"
#include "gui/cp1252.h"
#include "gui/qt_platform.h"
#include "forms/app.h"

namespace tos::gui {

CompilerWindow::CompilerWindow(App& app, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                         Qt::WindowCloseButtonHint),
      app_(app)
{
    setObjectName("frmScriptCompiler");
    setWindowTitle(FromCp1252(app.compiler.caption));
    setSizeGripEnabled(false);
    BuildControls();

    // Opens at its designed size; a larger window gives the list the room.
    const QSize designed(TwipsToPixels(app.compiler.widthTwips),
                         TwipsToPixels(app.compiler.heightTwips));
    setMinimumSize(designed);
    resize(designed);

    // The model outlives the window in tests; its notifiers must not reach a dead window.
    QPointer<CompilerWindow> self(this);
    app.compiler.formView.Subscribe([self] {
        if (self)
            self->SyncForm();
    });
    app.compiler.showModal = [self] {
        if (self)
            self->exec();
    };
    SyncForm();
}

CompilerWindow::~CompilerWindow()
{
    app_.compiler.showModal = nullptr;
}

void CompilerWindow::BuildControls()
{
    CompilerForm& form = app_.compiler;
    // Creation order is the tab order: Done, the list, Add File, Save As.
    QPushButton* done = MakeButton(form.btnDone, this);
    QGroupBox* frame = MakeFrame(form.frameCompiledMaxScript, this);
    auto* frameLayout = new QVBoxLayout(frame);
    frameLayout->addWidget(MakeListBox(form.lstMaxScripts, frame));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(MakeButton(form.btnAddFile, this));
    buttons->addWidget(MakeButton(form.btnSaveAs, this));
    buttons->addStretch(1);
    buttons->addWidget(done);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame, 1);
    layout->addLayout(buttons);
}

void CompilerWindow::SyncForm()
{
    const CompilerForm& form = app_.compiler;
    if (!form.visible && isVisible())
        hide();
    placement_.Sync(this, form.left, form.top);
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
