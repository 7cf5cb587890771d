#include "win/ui/layout.h"

#include <algorithm>

namespace tos::win::ui {

Scale::Scale() : dpi_(96)
{
    if (HDC screen = GetDC(nullptr)) {
        const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
        ReleaseDC(nullptr, screen);
        if (dpi > 0)
            dpi_ = dpi;
    }
}

void Layout::Add(HWND control, TwipRect place, unsigned anchor)
{
    entries_.push_back({control, place, anchor});
}

SIZE Layout::DesignedClient() const
{
    return {scale_.Pixels(width_), scale_.Pixels(height_)};
}

void Layout::Apply(int clientWidth, int clientHeight) const
{
    const SIZE designed = DesignedClient();
    const int dx = std::max(0, clientWidth - static_cast<int>(designed.cx));
    const int dy = std::max(0, clientHeight - static_cast<int>(designed.cy));
    // One deferred batch, so the form repaints once and not control by control.
    HDWP batch = BeginDeferWindowPos(static_cast<int>(entries_.size()));
    for (const Entry& e : entries_) {
        int x = scale_.Pixels(e.place.x);
        int y = scale_.Pixels(e.place.y);
        int w = scale_.Pixels(e.place.width);
        int h = scale_.Pixels(e.place.height);
        if (e.anchor & kGrowRight)
            w += dx;
        if (e.anchor & kGrowDown)
            h += dy;
        if (e.anchor & kMoveRight)
            x += dx;
        if (e.anchor & kMoveDown)
            y += dy;
        const UINT flags = SWP_NOZORDER | SWP_NOACTIVATE;
        if (batch)
            batch = DeferWindowPos(batch, e.control, nullptr, x, y, w, h, flags);
        else
            SetWindowPos(e.control, nullptr, x, y, w, h, flags);
    }
    if (batch)
        EndDeferWindowPos(batch);
}

} // namespace tos::win::ui
