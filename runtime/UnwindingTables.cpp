// SPDX-License-Identifier: MIT
// x86: the tables by which exceptions find their handlers are registered with our own unwinder.
//
// An unwinder for x86 finds the handlers of a module in tables that the module's start-up code has
// registered with it. Ours is linked statically. But the compiler's start-up code looks for
// libgcc_s_dw2-1.dll in the process first, which any host or plug-in built with the same compiler
// may have loaded, and registers the tables there: our unwinder would find none, and the first
// exception would end the host. The linker puts the function below in its place (--wrap). Neither
// unwinder ever sees the tables of the other. On x64 the system keeps the tables of every module.
#include <windows.h>

#include <cstdlib>

// A place in the section of the tables, before those of this file.
__asm__(".section .eh_frame,\"dr\"\n"
        "_QuorvaneUnwindingTable:\n"
        ".text");

extern "C" {

extern const char QuorvaneUnwindingTable[];
extern const IMAGE_DOS_HEADER __ImageBase;

// Of the unwinder; the object is room for what it notes of a module, six words so far.
void __register_frame_info(const void* tables, void* object);
void* __deregister_frame_info(const void* tables);

void __wrap___gcc_register_frame();
}

namespace {

/// Where the section with the tables of all objects of this module begins.
const char* Tables() {
    const auto* const image = reinterpret_cast<const char*>(&__ImageBase);
    const auto* const headers =
        reinterpret_cast<const IMAGE_NT_HEADERS*>(image + __ImageBase.e_lfanew);
    const auto place = static_cast<DWORD>(QuorvaneUnwindingTable - image);
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(headers);
    while (place - section->VirtualAddress >= section->Misc.VirtualSize) {
        ++section;
    }
    return image + section->VirtualAddress;
}

} // namespace

/// Runs before any other code of the module; the tables go when it is unloaded.
void __wrap___gcc_register_frame() {
    static void* object[16];
    __register_frame_info(Tables(), static_cast<void*>(object));
    std::atexit([] { __deregister_frame_info(Tables()); });
}
