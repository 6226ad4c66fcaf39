// SPDX-License-Identifier: MIT
// Memory that a COM method hands to its caller to free.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <new>
#include <span>

#include "shared/Text.h"

namespace Quorvane::Com {

/// Copies items into memory of the task allocator. Throws std::bad_alloc.
template <class T>
T* NewTaskArray(std::span<const T> items) {
    auto* const result = static_cast<T*>(::CoTaskMemAlloc(items.size_bytes()));
    if (!result) {
        throw std::bad_alloc();
    }
    std::copy(items.begin(), items.end(), result);
    return result;
}

/// Copies a text into memory of the task allocator, with a terminating zero. Throws std::bad_alloc.
inline LPOLESTR NewTaskText(TextView text) {
    const Text terminated(text);
    return reinterpret_cast<LPOLESTR>(
        NewTaskArray(std::span<const char16_t>(terminated.c_str(), terminated.size() + 1)));
}

} // namespace Quorvane::Com
