#pragma once

#include "win/platform/win32.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "win/ui/control_mirror.h"
#include "win/ui/fonts.h"
#include "win/ui/layout.h"

namespace tos::win::ui {

// A top-level window over a form model: it owns the mirrors of the form's
// controls, hands each of them what Windows reports about its window, lays the
// controls out as the window grows, and shows the form's mouse pointer. It keeps
// no state of the program: the model decides, the window follows.
class FormWindow {
public:
    virtual ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    HWND Handle() const { return hwnd_; }
    // The window of the control of that name, or nullptr.
    HWND Find(std::string_view name) const;

    const Scale& Dpi() const { return scale_; }
    FontCache& Fonts() { return fonts_; }

    // A new control of this form: its mirror, placed as designed.
    template <class M, class C, class... Args>
    M& Add(C& control, TwipRect place, unsigned anchor, Args&&... args)
    {
        auto mirror = std::make_unique<M>(*this, control, std::forward<Args>(args)...);
        M& made = *mirror;
        mirrors_.push_back(std::move(mirror));
        made.Make();
        layout_.Add(made.Handle(), place, anchor);
        return made;
    }

    // For mirrors: the identifier of the next control window, and its registration.
    int NextControlId() { return kFirstControlId + static_cast<int>(byId_.size()); }
    void Register(ControlMirror* mirror, HWND window, int id);
    // Shows text as a tooltip of a window ("" removes it).
    void SetTip(HWND tool, const std::string& text);
    // Runs the mirror's OnSync once at the next turn of the message loop, however
    // often asked before then: rows change in bursts, one by one.
    void SyncLater(ControlMirror* mirror);
    // Runs the syncs asked for so far.
    void FlushSyncs();

protected:
    FormWindow(const std::string& caption, DWORD style, DWORD exStyle, HWND owner, int widthTwips,
               int heightTwips);

    // The close box.
    virtual void OnClose() = 0;
    // Escape, as a dialog reads it; most forms ignore it.
    virtual void OnCancel() {}
    // Runs paint whenever the form's notifier says it changed, while this window lives.
    void FollowForm(ViewNotifier& notifier, std::function<void()> paint);
    // The model's mouse pointer of this form.
    virtual int Pointer() const = 0;
    // A window of the form that mirrors no control, placed as designed.
    void Place(HWND window, TwipRect place, unsigned anchor);
    // Places the controls once all are added, at the designed size.
    void FinishLayout();
    // Mirrors a form's position (in twips) and pointer. Only a new position of the
    // form moves the window, so a window the user has dragged stays where it is
    // when the pointer changes for a load or a build.
    void SyncPlacement(int leftTwips, int topTwips);
    // Shows the model's mouse pointer at once where the mouse stands over the form.
    void ShowPointer();
    // Gives the keyboard focus to the first control that takes it.
    void FocusFirst();
    // Shows the window over its disabled owner and runs the messages until shown
    // turns false or the program ends; then hides the window and gives the owner
    // back the activation.
    void RunModal(const std::function<bool()>& shown);
    bool InModalLoop() const { return modal_; }
    // The keyboard focus went to another window during the modal loop.
    virtual void FocusMoved(HWND /*focus*/) {}

private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    ControlMirror* MirrorOf(HWND window) const;

    static constexpr int kFirstControlId = 100;
    static constexpr UINT kSyncMessage = WM_APP + 1;

    HWND hwnd_ = nullptr;
    HWND tips_ = nullptr;
    Scale scale_;
    FontCache fonts_;
    Layout layout_;
    DWORD style_;
    DWORD exStyle_;
    std::vector<std::unique_ptr<ControlMirror>> mirrors_;
    std::map<HWND, ControlMirror*> byWindow_;
    std::map<int, ControlMirror*> byId_;
    std::set<HWND> tipped_;
    std::vector<ControlMirror*> pending_;
    bool syncPosted_ = false;
    std::optional<std::pair<int, int>> placed_;
    int shownPointer_ = 0;
    HWND savedFocus_ = nullptr;
    bool modal_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace tos::win::ui
