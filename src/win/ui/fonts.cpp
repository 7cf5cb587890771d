#include "win/ui/fonts.h"

#include "forms/screen_text.h"

namespace tos::win::ui {

namespace {

// The form was laid out for a small dialog font.
constexpr const char* kFormFace = "MS Sans Serif";
constexpr int kFormPoints = 8;

int CALLBACK NoteFound(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM found)
{
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

bool Installed(const std::string& face)
{
    // The fonts installed do not change while the program runs, and asking is slow.
    static std::map<std::string, bool> known;
    if (const auto it = known.find(face); it != known.end())
        return it->second;
    LOGFONTA wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    lstrcpynA(wanted.lfFaceName, face.c_str(), LF_FACESIZE);
    bool found = false;
    HDC screen = GetDC(nullptr);
    EnumFontFamiliesExA(screen, &wanted, NoteFound, reinterpret_cast<LPARAM>(&found), 0);
    ReleaseDC(nullptr, screen);
    known[face] = found;
    return found;
}

} // namespace

std::string InstalledFace(const std::string& face)
{
    return ChooseFace(face, Installed);
}

FontCache::~FontCache()
{
    for (const auto& [key, font] : fonts_)
        DeleteObject(font);
}

HFONT FontCache::Form()
{
    return Get({kFormFace, kFormPoints});
}

HFONT FontCache::Get(const Font& font)
{
    if (font.name.empty())
        return Form();
    const int points = font.points > 0 ? font.points : kFormPoints;
    const auto key = std::pair(font.name, points);
    if (const auto it = fonts_.find(key); it != fonts_.end())
        return it->second;

    LOGFONTA lf{};
    lf.lfHeight = scale_.FontHeight(points);
    lf.lfWeight = FW_NORMAL;
    lf.lfCharSet = ANSI_CHARSET;
    lf.lfOutPrecision = OUT_DEFAULT_PRECIS;
    lf.lfQuality = DEFAULT_QUALITY;
    // A script list must stay fixed-pitch whatever face stands in.
    lf.lfPitchAndFamily =
        IsFixedPitchFace(font.name) ? FIXED_PITCH | FF_MODERN : VARIABLE_PITCH | FF_SWISS;
    lstrcpynA(lf.lfFaceName, InstalledFace(font.name).c_str(), LF_FACESIZE);
    HFONT made = CreateFontIndirectA(&lf);
    fonts_[key] = made;
    return made;
}

} // namespace tos::win::ui
