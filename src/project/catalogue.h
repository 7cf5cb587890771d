#pragma once

#include <string>

namespace tos {

struct App;

// Fills the four fixed stock tables and the misc table from the catalogue file.
void LoadInternalObjects(App& app);

bool IsInternalBillboard(App& app, const std::string& modelValue);
bool IsInternalBale(App& app, const std::string& modelValue);
bool IsInternalTripleBale(App& app, const std::string& modelValue);
bool IsInternal55GalDrum_TrashCan(App& app, const std::string& modelValue);
bool IsInternalMiscStockObject(App& app, const std::string& modelValue);

} // namespace tos
