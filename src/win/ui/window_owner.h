#pragma once

#include "win/platform/win32.h"

namespace tos::win::ui {

// The object a window belongs to: handed over with CreateWindowExA's last argument,
// kept in the window's user data and told its handle as the window is made, so each
// window procedure finds its own object. Null for messages before WM_NCCREATE.
template <class Owner>
Owner* AttachedOwner(HWND hwnd, UINT message, LPARAM lParam, HWND Owner::*handle)
{
    if (message == WM_NCCREATE) {
        auto* owner =
            static_cast<Owner*>(reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams);
        SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
        owner->*handle = hwnd;
    }
    return reinterpret_cast<Owner*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
}

} // namespace tos::win::ui
