#pragma once

#include "win/platform/win32.h"

#include <string>

namespace tos::win {

// The two remembered folders live as REG_SZ values of one key under a root such as
// HKEY_CURRENT_USER. Note the different argument orders, kept from the design.

// The value as text without its terminating zero; "" for a missing key or value,
// an empty value and any failed read.
std::string GetRegStr(const std::string& key, const std::string& valueName, HKEY root);

// Creates the key and the keys above it when missing and writes the value with its
// terminating zero. A failed write is silent; an empty key writes nothing.
void SetRegStr(const std::string& valueName, const std::string& value, const std::string& key,
               HKEY root);

} // namespace tos::win
