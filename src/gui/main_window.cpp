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
#include "gui/control_views.h"
#include "gui/cp1252.h"

namespace tos::gui {

namespace {

// Widths of the two columns and the usual heights of a row of controls.
constexpr int kMargin = 8;
constexpr int kLeftWidth = 404;
constexpr int kRightLeft = kMargin + kLeftWidth + 8;
constexpr int kRightWidth = MainWindow::kWidthPixels - kRightLeft - kMargin;
constexpr int kRow = 22;

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
    frame->setGeometry(kMargin, 4, kLeftWidth, 186);
    const int labelWidth = 160;
    const int boxLeft = 12 + labelWidth;

    MakeButton(f.btnBrowseProjectFile, frame)->setGeometry(10, 18, 66, 24);
    MakeTextBox(f.txtProjectFilePath, frame)->setGeometry(82, 19, kLeftWidth - 92, kRow);
    MakeCheckBox(f.chkMainTile, frame)->setGeometry(10, 46, 180, kRow);
    MakeCheckBox(f.chkPerimeterTile, frame)->setGeometry(192, 46, 206, kRow);

    MakeLabel(f.lblNumberOfTiles, frame)->setGeometry(10, 68, labelWidth, kRow);
    MakeTextBox(f.txtNumberOfTiles, frame)->setGeometry(boxLeft, 68, 44, kRow);
    MakeLabel(f.lblGridRes, frame)->setGeometry(boxLeft + 60, 68, 64, kRow);
    MakeTextBox(f.txtGridRes, frame)->setGeometry(boxLeft + 124, 68, 54, kRow);
    MakeLabel(f.lblNumOfSLTFiles, frame)->setGeometry(10, 90, labelWidth, kRow);
    MakeLabel(f.lblSLTcount, frame)->setGeometry(boxLeft, 90, 80, kRow);

    MakeLabel(f.lblSelectObject, frame)->setGeometry(10, 112, 100, kRow);
    MakeComboBox(f.comboSelectObject, frame)->setGeometry(110, 112, kLeftWidth - 120, 24);

    MakeLabel(f.lblVerticalScale, frame)->setGeometry(10, 140, labelWidth, kRow);
    MakeTextBox(f.txtVerticalScale, frame)->setGeometry(boxLeft, 140, 64, kRow);
    MakeButton(f.btnSceneMap, frame)->setGeometry(boxLeft + 76, 140, kLeftWidth - boxLeft - 86, 24);
    MakeLabel(f.lblVerticalOffest, frame)->setGeometry(10, 162, labelWidth, kRow);
    MakeTextBox(f.txtVerticalOffset, frame)->setGeometry(boxLeft, 162, 64, kRow);
}

void MainWindow::BuildMaxFrame()
{
    MainForm& f = app_.main;
    QGroupBox* frame = MakeFrame(f.Frame2, this);
    frame->setGeometry(kMargin, 194, kLeftWidth, 96);

    MakeButton(f.btnBrowseMaxFile, frame)->setGeometry(10, 18, 66, 24);
    MakeTextBox(f.txtMaxFile, frame)->setGeometry(82, 19, kLeftWidth - 92, kRow);
    MakeLabel(f.lblMaxObjectName, frame)->setGeometry(10, 44, 90, kRow);
    MakeTextBox(f.txtMaxObjectName, frame)->setGeometry(100, 44, kLeftWidth - 110, kRow);
    MakeCheckBox(f.chkUseTolvarineName, frame)->setGeometry(10, 68, 170, kRow);
    MakeCheckBox(f.chkUseMaxName, frame)->setGeometry(190, 68, 200, kRow);
}

void MainWindow::BuildRightColumn()
{
    MainForm& f = app_.main;
    int y = 10;
    auto place = [&y](QWidget* w, int height, int gap) {
        w->setGeometry(kRightLeft, y, kRightWidth, height);
        y += height + gap;
    };
    place(MakeButton(f.btnProcess, this), 30, 4);
    place(MakeCheckBox(f.chkSave, this), kRow, 4);
    place(MakeButton(f.btnProcessAll, this), 24, 4);
    place(MakeButton(f.btnRunScriptCompiler, this), 24, 4);
    place(MakeButton(f.btnViewHelp, this), 24, 4);
    place(MakeButton(f.btnExit, this), 24, 10);
    place(MakeCheckBox(f.chkUseObjectScale, this), kRow, 2);
    place(MakeTextBox(f.txtObjectScale, this), kRow, 10);
    place(MakeLabel(f.lblCalcGridSize, this), kRow, 2);
    place(MakeTextBox(f.txtGridSize, this), kRow, 0);
}

void MainWindow::BuildOutputFrames()
{
    MainForm& f = app_.main;
    output_ = MakeFrame(f.frameMaxScriptOutput, this);
    MakeCheckBox(f.chkMax2008, output_)->setGeometry(8, 16, 200, 20);
    MakeCheckBox(f.chkInstances, output_)->setGeometry(212, 16, 200, 20);
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
    MakeLabel(f.lblVersion, credits_)->setGeometry(10, 6, 70, 22);
    creditsText_ = MakeLabel(f.lblCredits, credits_);
    creditsText_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    PlaceOutputFrames();
}

// Above the script list everything keeps its designed place; the list grows
// with the window and the credits stay at its foot.
void MainWindow::PlaceOutputFrames()
{
    const int width = this->width() - 2 * kMargin;
    const int taller = std::max(0, height() - kHeightPixels);
    output_->setGeometry(kMargin, 292, width, 100 + taller);
    script_->setGeometry(8, 38, width - 16, 38 + taller);
    check_->setGeometry(8, 77 + taller, width - 16, 18);
    ElideCheckLine();
    credits_->setGeometry(kMargin, 394 + taller, width, 34);
    creditsText_->setGeometry(90, 2, width - 100, 30);
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
