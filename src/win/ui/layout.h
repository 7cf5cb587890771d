#pragma once

#include "win/platform/win32.h"

#include <vector>

#include "forms/main_form_layout.h"

namespace tos::win::ui {

// A place on a form in twips, measured from the top left of its inner area.
struct TwipRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// A place of the form as designed, at 15 twips to its pixel.
inline TwipRect TwipsOf(const DesignedPlace& place)
{
    return {15 * place.x, 15 * place.y, 15 * place.width, 15 * place.height};
}

// How a control follows its form when the user makes the form larger than
// designed. Combine with |.
enum Anchor : unsigned {
    kFixed = 0,
    kGrowRight = 1, // takes the extra width
    kGrowDown = 2,  // takes the extra height
    kMoveRight = 4, // keeps its distance to the right edge
    kMoveDown = 8,  // keeps its distance to the bottom edge
};

// Twips to pixels at the screen's DPI: 1440 twips to the logical inch.
class Scale {
public:
    // The screen's own DPI.
    Scale();
    explicit Scale(int dotsPerInch) : dpi_(dotsPerInch > 0 ? dotsPerInch : 96) {}
    int Dpi() const { return dpi_; }
    int Pixels(int twips) const { return MulDiv(twips, dpi_, 1440); }
    int Twips(int pixels) const { return MulDiv(pixels, 1440, dpi_); }
    // Height of a font of this many points, as LOGFONT wants it.
    int FontHeight(int points) const { return -MulDiv(points, dpi_, 72); }

private:
    int dpi_;
};

// The controls of one form with their designed places. Laying out at a client
// size gives the extra room beyond the designed size to the controls that
// take it; a smaller size than designed is not offered (see MinimumTrackSize).
class Layout {
public:
    Layout(const Scale& scale, int widthTwips, int heightTwips)
        : scale_(scale), width_(widthTwips), height_(heightTwips)
    {
    }

    void Add(HWND control, TwipRect place, unsigned anchor);
    // Places every control for a client area of this many pixels.
    void Apply(int clientWidth, int clientHeight) const;
    // The client area as designed, in pixels.
    SIZE DesignedClient() const;

private:
    struct Entry {
        HWND control;
        TwipRect place;
        unsigned anchor;
    };

    const Scale& scale_;
    int width_;
    int height_;
    std::vector<Entry> entries_;
};

} // namespace tos::win::ui
