#pragma once

#include "win/platform/win32.h"

#include <map>
#include <string>
#include <utility>

#include "forms/controls.h"
#include "win/ui/layout.h"

namespace tos::win::ui {

// The face to ask for: the named one where installed, else its metric-compatible
// stand-in where that is installed, else the name itself so the font mapper
// picks the nearest face of the same pitch and family.
std::string InstalledFace(const std::string& face);

// The fonts of one form, made once for each name and size and deleted with it.
class FontCache {
public:
    explicit FontCache(const Scale& scale) : scale_(scale) {}
    ~FontCache();
    FontCache(const FontCache&) = delete;
    FontCache& operator=(const FontCache&) = delete;

    // The form's own font, for controls that name none.
    HFONT Form();
    HFONT Get(const Font& font);

private:
    const Scale& scale_;
    std::map<std::pair<std::string, int>, HFONT> fonts_;
};

} // namespace tos::win::ui
