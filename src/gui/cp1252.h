#pragma once

#include <QString>
#include <string>

namespace tos::gui {

// The core keeps text as Windows-1252 bytes; widgets hold Unicode. These two
// convert at the boundary. Bytes the code page leaves undefined map to the C1
// control of the same value, so every byte survives a round trip; a character
// the code page cannot hold becomes "?".
QString FromCp1252(const std::string& bytes);
std::string ToCp1252(const QString& text);

} // namespace tos::gui
