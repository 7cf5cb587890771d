#pragma once

#include <QWidget>

#include "forms/main_form.h"
#include "gui/control_views.h"

class QCloseEvent;
class QResizeEvent;
class QGroupBox;
class QLabel;
class QListView;

namespace tos {
struct App;
}

namespace tos::gui {

// The main form on the screen. It holds no state of its own: each widget mirrors
// one control of the form model, and the window shows, hides and places itself
// as the model says.
class MainWindow : public QWidget {
public:
    // Inner area of the form at the designed 15 twips to the pixel; the window
    // opens at this size and can be made larger, not smaller.
    static constexpr int kWidthPixels = MainForm::kWidthTwips / 15;
    static constexpr int kHeightPixels = MainForm::kHeightTwips / 15;

    explicit MainWindow(App& app, QWidget* parent = nullptr);

protected:
    // The close box does what the Exit button does.
    void closeEvent(QCloseEvent* event) override;
    // The script list takes the room the window gains.
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildProjectFrame();
    void BuildMaxFrame();
    void BuildRightColumn();
    void BuildOutputFrames();
    void PlaceOutputFrames();
    // The check's line, cut with an ellipsis to the label's width.
    void ElideCheckLine();
    void SyncForm();

    App& app_;
    FormPlacement placement_;
    QGroupBox* output_ = nullptr;
    QListView* script_ = nullptr;
    QLabel* check_ = nullptr;
    QGroupBox* credits_ = nullptr;
    QLabel* creditsText_ = nullptr;
};

} // namespace tos::gui
