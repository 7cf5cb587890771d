#pragma once

#include <utility>

#include "win/ui/form_window.h"

namespace tos {
struct App;
}

namespace tos::win::ui {

// The main form on the screen. Each control window mirrors one control of the
// form model, and the window shows, hides and places itself as the model says.
// It opens at its designed size, can be made larger by its border (the script
// list takes the room) and has no maximise button.
class MainWindow : public FormWindow {
public:
    explicit MainWindow(App& app);

protected:
    // The close box does what the Exit button does.
    void OnClose() override;
    int Pointer() const override;

private:
    void BuildProjectFrame();
    void BuildMaxFrame();
    void BuildRightColumn();
    void BuildOutputFrames();
    void SyncForm();
    // Adds the mirror of a control at its designed place.
    template <class M, class C, class... Args> M& Put(C& control, unsigned anchor, Args&&... args)
    {
        return Add<M>(control, Designed(control), anchor, std::forward<Args>(args)...);
    }
    TwipRect Designed(const Control& control) const;

    App& app_;
};

} // namespace tos::win::ui
