#pragma once

// The Win32 headers as every Windows unit of this program includes them. Their
// MessageBox macro would rename the core's MessageBox struct in some units and not
// in others, so it goes: call MessageBoxA by its own name.
#include <windows.h>

#include <commdlg.h>
#include <shellapi.h>

#undef MessageBox
