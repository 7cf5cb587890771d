#include "gui/cp1252.h"

#include <QList>
#include <array>

namespace tos::gui {

namespace {

// Characters of the bytes 0x80-0x9F; the rest of the code page equals Latin-1.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    for (std::size_t i = 0; i < kHighControls.size(); ++i)
        if (kHighControls[i] == c)
            return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace

QString FromCp1252(const std::string& bytes)
{
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char ch : bytes) {
        const auto b = static_cast<unsigned char>(ch);
        const char16_t c = (b >= 0x80 && b <= 0x9F) ? kHighControls[b - 0x80] : char16_t(b);
        text.append(QChar(c));
    }
    return text;
}

std::string ToCp1252(const QString& text)
{
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (const char32_t c : text.toUcs4())
        bytes.push_back(ByteOf(c));
    return bytes;
}

} // namespace tos::gui
