#include "gui/cp1252.h"

#include <QList>

#include "forms/code_page.h"

namespace tos::gui {

QString FromCp1252(const std::string& bytes)
{
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char ch : bytes)
        text.append(QChar(static_cast<char16_t>(CharOfByte(static_cast<unsigned char>(ch)))));
    return text;
}

std::string ToCp1252(const QString& text)
{
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (const char32_t c : text.toUcs4())
        bytes.push_back(ByteOfChar(c));
    return bytes;
}

} // namespace tos::gui
