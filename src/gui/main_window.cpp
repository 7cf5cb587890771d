#include "gui/main_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QResizeEvent>
#include <algorithm>

#include "forms/app.h"
#include "forms/main_form_layout.h"
#include "gui/control_views.h"
#include "gui/cp1252.h"

namespace tos::gui {

namespace {

// The designed place of a control, from the top left of its frame when it has one.
QRect Designed(const MainForm& f, const Control& control, const Control* frame = nullptr)
{
    const DesignedPlace p = DesignedPlaceOf(f, control);
    QRect place(p.x, p.y, p.width, p.height);
    if (frame) {
        const DesignedPlace origin = DesignedPlaceOf(f, *frame);
        place.translate(-origin.x, -origin.y);
    }
    return place;
}

} // namespace

MainWindow::MainWindow(App& app, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint),
      app_(app)
{
    setObjectName("frmTolvarineObjectScripter");
    setWindowTitle(FromCp1252(app.main.caption));
    setMinimumSize(kWidthPixels, kHeightPixels);
    resize(kWidthPixels, kHeightPixels);
    // The form was laid out for a small dialog font; controls with a font of
    // their own keep it.
    QFont small = font();
    small.setPointSize(8);
    setFont(small);

    BuildProjectFrame();
    BuildMaxFrame();
    BuildRightColumn();
    BuildOutputFrames();

    QPointer<MainWindow> self(this);
    app.main.formView.Subscribe([self] {
        if (self)
            self->SyncForm();
    });
    SyncForm();
}

void MainWindow::BuildProjectFrame()
{
    MainForm& f = app_.main;
    QGroupBox* frame = MakeFrame(f.frameSourceTolvarineProject, this);
    frame->setGeometry(Designed(f, f.frameSourceTolvarineProject));
    auto in = [&f](const Control& control) {
        return Designed(f, control, &f.frameSourceTolvarineProject);
    };
    MakeButton(f.btnBrowseProjectFile, frame)->setGeometry(in(f.btnBrowseProjectFile));
    MakeTextBox(f.txtProjectFilePath, frame)->setGeometry(in(f.txtProjectFilePath));
    MakeCheckBox(f.chkMainTile, frame)->setGeometry(in(f.chkMainTile));
    MakeCheckBox(f.chkPerimeterTile, frame)->setGeometry(in(f.chkPerimeterTile));
    MakeLabel(f.lblNumberOfTiles, frame)->setGeometry(in(f.lblNumberOfTiles));
    MakeTextBox(f.txtNumberOfTiles, frame)->setGeometry(in(f.txtNumberOfTiles));
    MakeLabel(f.lblGridRes, frame)->setGeometry(in(f.lblGridRes));
    MakeTextBox(f.txtGridRes, frame)->setGeometry(in(f.txtGridRes));
    MakeLabel(f.lblNumOfSLTFiles, frame)->setGeometry(in(f.lblNumOfSLTFiles));
    MakeLabel(f.lblSLTcount, frame)->setGeometry(in(f.lblSLTcount));
    MakeLabel(f.lblSelectObject, frame)->setGeometry(in(f.lblSelectObject));
    MakeComboBox(f.comboSelectObject, frame)->setGeometry(in(f.comboSelectObject));
    MakeLabel(f.lblVerticalScale, frame)->setGeometry(in(f.lblVerticalScale));
    MakeTextBox(f.txtVerticalScale, frame)->setGeometry(in(f.txtVerticalScale));
    MakeButton(f.btnSceneMap, frame)->setGeometry(in(f.btnSceneMap));
    MakeLabel(f.lblVerticalOffest, frame)->setGeometry(in(f.lblVerticalOffest));
    MakeTextBox(f.txtVerticalOffset, frame)->setGeometry(in(f.txtVerticalOffset));
}

void MainWindow::BuildMaxFrame()
{
    MainForm& f = app_.main;
    QGroupBox* frame = MakeFrame(f.Frame2, this);
    frame->setGeometry(Designed(f, f.Frame2));
    auto in = [&f](const Control& control) { return Designed(f, control, &f.Frame2); };
    MakeButton(f.btnBrowseMaxFile, frame)->setGeometry(in(f.btnBrowseMaxFile));
    MakeTextBox(f.txtMaxFile, frame)->setGeometry(in(f.txtMaxFile));
    MakeLabel(f.lblMaxObjectName, frame)->setGeometry(in(f.lblMaxObjectName));
    MakeTextBox(f.txtMaxObjectName, frame)->setGeometry(in(f.txtMaxObjectName));
    MakeCheckBox(f.chkUseTolvarineName, frame)->setGeometry(in(f.chkUseTolvarineName));
    MakeCheckBox(f.chkUseMaxName, frame)->setGeometry(in(f.chkUseMaxName));
}

void MainWindow::BuildRightColumn()
{
    MainForm& f = app_.main;
    MakeButton(f.btnProcess, this)->setGeometry(Designed(f, f.btnProcess));
    MakeCheckBox(f.chkSave, this)->setGeometry(Designed(f, f.chkSave));
    MakeButton(f.btnProcessAll, this)->setGeometry(Designed(f, f.btnProcessAll));
    MakeButton(f.btnRunScriptCompiler, this)->setGeometry(Designed(f, f.btnRunScriptCompiler));
    MakeButton(f.btnViewHelp, this)->setGeometry(Designed(f, f.btnViewHelp));
    MakeButton(f.btnExit, this)->setGeometry(Designed(f, f.btnExit));
    MakeCheckBox(f.chkUseObjectScale, this)->setGeometry(Designed(f, f.chkUseObjectScale));
    MakeTextBox(f.txtObjectScale, this)->setGeometry(Designed(f, f.txtObjectScale));
    MakeLabel(f.lblCalcGridSize, this)->setGeometry(Designed(f, f.lblCalcGridSize));
    MakeTextBox(f.txtGridSize, this)->setGeometry(Designed(f, f.txtGridSize));
}

void MainWindow::BuildOutputFrames()
{
    MainForm& f = app_.main;
    output_ = MakeFrame(f.frameMaxScriptOutput, this);
    auto in = [&f](const Control& control) {
        return Designed(f, control, &f.frameMaxScriptOutput);
    };
    MakeCheckBox(f.chkMax2008, output_)->setGeometry(in(f.chkMax2008));
    MakeCheckBox(f.chkInstances, output_)->setGeometry(in(f.chkInstances));
    script_ = MakeListBox(f.List2, output_);
    // One line under the script, cut to its width, the whole text as its tooltip.
    check_ = MakeLabel(f.lblScriptCheck, output_);
    QPointer<MainWindow> self(this);
    f.lblScriptCheck.view.Subscribe([self] {
        if (self)
            self->ElideCheckLine();
    });

    // The record lists are the program's working data, never shown.
    credits_ = MakeFrame(f.Frame1, this);
    MakeLabel(f.lblVersion, credits_)->setGeometry(Designed(f, f.lblVersion, &f.Frame1));
    creditsText_ = MakeLabel(f.lblCredits, credits_);
    creditsText_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    PlaceOutputFrames();
}

// Above the script list everything keeps its designed place; the list grows
// with the window and the credits stay at its foot.
void MainWindow::PlaceOutputFrames()
{
    const MainForm& f = app_.main;
    const int wider = std::max(0, width() - kWidthPixels);
    const int taller = std::max(0, height() - kHeightPixels);
    output_->setGeometry(Designed(f, f.frameMaxScriptOutput).adjusted(0, 0, wider, taller));
    script_->setGeometry(
        Designed(f, f.List2, &f.frameMaxScriptOutput).adjusted(0, 0, wider, taller));
    check_->setGeometry(Designed(f, f.lblScriptCheck, &f.frameMaxScriptOutput)
                            .translated(0, taller)
                            .adjusted(0, 0, wider, 0));
    ElideCheckLine();
    credits_->setGeometry(Designed(f, f.Frame1).translated(0, taller).adjusted(0, 0, wider, 0));
    creditsText_->setGeometry(Designed(f, f.lblCredits, &f.Frame1).adjusted(0, 0, wider, 0));
}

void MainWindow::ElideCheckLine()
{
    const QString full = FromCp1252(app_.main.lblScriptCheck.Caption());
    check_->setText(check_->fontMetrics().elidedText(full, Qt::ElideRight, check_->width()));
    check_->setToolTip(full);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    PlaceOutputFrames();
}

void MainWindow::SyncForm()
{
    const MainForm& f = app_.main;
    placement_.Sync(this, f.left, f.top);
    if (f.visible != isVisible())
        setVisible(f.visible);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    // The model decides: Exit hides the window and ends the event loop.
    event->ignore();
    app_.main.btnExit.Click.Fire();
}

} // namespace tos::gui
