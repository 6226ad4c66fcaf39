// SPDX-License-Identifier: MIT
// Modality: one window of a thread that can be worked, and the others that wait.
#include "win/ModalScope.h"

#include <new>
#include <utility>

namespace Quorvane::Win {
namespace {

struct Search {
    HWND Modal;
    std::vector<HWND> Found;
    bool IsOutOfMemory = false;
};

BOOL CALLBACK Note(HWND window, LPARAM parameter) noexcept {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (window == search.Modal || !::IsWindowVisible(window) || !::IsWindowEnabled(window)) {
        return TRUE;
    }
    try {
        search.Found.push_back(window);
    } catch (const std::bad_alloc&) {
        search.IsOutOfMemory = true;
    }
    return !search.IsOutOfMemory;
}

} // namespace

ModalScope::ModalScope(HWND modal) {
    Search search{modal, {}};
    ::EnumThreadWindows(::GetCurrentThreadId(), Note, reinterpret_cast<LPARAM>(&search));
    if (search.IsOutOfMemory) {
        throw std::bad_alloc();
    }
    disabled_ = std::move(search.Found);
    for (HWND const window : disabled_) {
        ::EnableWindow(window, FALSE);
    }
}

ModalScope::~ModalScope() {
    for (HWND const window : disabled_) {
        if (::IsWindow(window)) {
            ::EnableWindow(window, TRUE);
        }
    }
}

} // namespace Quorvane::Win
