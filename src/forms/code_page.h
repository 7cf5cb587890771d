#pragma once

namespace tos {

// The program's text is bytes of Windows-1252. These give the character of a
// byte and back, for the places where text leaves as Unicode (widgets, XML) or
// comes in as Unicode (file names of a UTF-8 system). Bytes the code page leaves
// undefined stand for the C1 control of the same value, so every byte survives
// a round trip.
char32_t CharOfByte(unsigned char byte);

// The byte of a character; '?' for one the code page cannot hold.
char ByteOfChar(char32_t character);

} // namespace tos
