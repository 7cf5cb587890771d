#pragma once

#include <QWidget>

#include "gui/control_views.h"

class QCloseEvent;

namespace tos {
struct App;
}

namespace tos::gui {

// The main form on the screen. It holds no state of its own: each widget mirrors
// one control of the form model, and the window shows, hides and places itself
// as the model says.
class MainWindow : public QWidget {
public:
    // Inner area of the form at the designed 15 twips to the pixel.
    static constexpr int kWidthPixels = 593;
    static constexpr int kHeightPixels = 432;

    explicit MainWindow(App& app, QWidget* parent = nullptr);

protected:
    // The close box does what the Exit button does.
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildProjectFrame();
    void BuildMaxFrame();
    void BuildRightColumn();
    void BuildOutputFrames();
    void SyncForm();

    App& app_;
    FormPlacement placement_;
};

} // namespace tos::gui
