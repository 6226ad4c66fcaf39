// SPDX-License-Identifier: MIT
// Registering window classes.
#include "win/WindowClass.h"

#include "win/Error.h"

namespace Quorvane::Win {

WindowClass::WindowClass(HINSTANCE module, const wchar_t* name, WNDPROC procedure)
    : module_(module), name_(name) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.hInstance = module;
    description.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    description.lpszClassName = name;
    if (!::RegisterClassExW(&description)) {
        ThrowLastError();
    }
}

WindowClass::~WindowClass() {
    ::UnregisterClassW(name_, module_);
}

} // namespace Quorvane::Win
