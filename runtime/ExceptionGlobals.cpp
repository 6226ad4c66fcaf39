// SPDX-License-Identifier: MIT
// What the C++ runtime keeps of each thread's exceptions, in memory that is always there.
//
// The runtime's own takes it from the heap at a thread's first exception and ends the process where
// there is none left, which is just when the first exception comes. Here the system allocates it
// with the thread, or when the module is loaded.
#include <windows.h>

#include <cxxabi.h>
#include <winternl.h>

extern "C" {
// The thread-local storage of the module, as the start-up code declares it to the system.
extern ULONG _tls_index;
extern char* _tls_start;
}

namespace {

/// The layout of __cxa_eh_globals.
struct ExceptionGlobals {
    void* CaughtExceptions;
    unsigned int UncaughtExceptions;
};

/// What each thread gets a copy of.
[[gnu::section(".tls$exceptions")]] ExceptionGlobals Initial{};

} // namespace

namespace __cxxabiv1 {

extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
    // ThreadLocalStoragePointer, by its documented place: a block for each module.
    auto* const* const blocks = static_cast<char**>(::NtCurrentTeb()->Reserved1[11]);
    const auto offset =
        reinterpret_cast<const char*>(&Initial) - reinterpret_cast<const char*>(&_tls_start);
    return reinterpret_cast<__cxa_eh_globals*>(blocks[_tls_index] + offset);
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return __cxa_get_globals();
}

} // namespace __cxxabiv1
