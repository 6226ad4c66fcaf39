// SPDX-License-Identifier: MIT
// Memory for 32-bit Windows that is aligned as the compiler counts on.
#include <malloc.h>

#include <new>

// The compiler takes memory from operator new to be aligned to 16 bytes, which it needs for pairs
// of numbers and words that are computed with at a time. The C runtime of 32-bit Windows gives 8.

void* operator new(std::size_t size) {
    constexpr std::size_t Alignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
    while (true) {
        if (void* const memory = ::_aligned_malloc(size != 0 ? size : 1, Alignment)) {
            return memory;
        }
        const std::new_handler handler = std::get_new_handler();
        if (!handler) {
            throw std::bad_alloc();
        }
        handler();
    }
}

void operator delete(void* memory) noexcept {
    ::_aligned_free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    ::_aligned_free(memory);
}
