// SPDX-License-Identifier: MIT
// Makes the C++ runtime ready for an exception when no memory is left.
//
// For that case it has a pool of its own. But what guards the pool, the unwinder and the first use
// of local statics are mutexes that take memory when they are locked for the first time. Where that
// fails, the runtime throws or ends the process, so each is used once while the module is loaded.
#include <cstdlib>

#include <cxxabi.h>

using Allocate = void*(std::size_t);

// The module's import of malloc, through which the runtime's calls go.
extern "C" Allocate* __MINGW_IMP_SYMBOL(malloc);

namespace {

Allocate* const originalMalloc = __MINGW_IMP_SYMBOL(malloc);

void* FailOnce(std::size_t /*size*/) {
    __MINGW_IMP_SYMBOL(malloc) = originalMalloc;
    return nullptr;
}

int Prepare() {
    // Memory for an exception comes from the pool when there is no other.
    __MINGW_IMP_SYMBOL(malloc) = &FailOnce;
    abi::__cxa_free_exception(abi::__cxa_allocate_exception(1));
    try {
        throw 0;
    } catch (int value) {
        return value;
    }
}

/// Runs once the libraries, which are linked behind, are ready; their statics have a mutex as well.
[[maybe_unused]] const int prepared = [] {
    static const int guarded = Prepare();
    return guarded;
}();

} // namespace
