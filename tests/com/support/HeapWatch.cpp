// SPDX-License-Identifier: MIT
// Counts what is taken from the heaps of the process, whoever takes it.
#include "tests/com/support/HeapWatch.h"

#include <oleauto.h>
#include <psapi.h>

#include <array>

namespace Quorvane {
namespace {

DWORD watchedThread = 0;
std::size_t count = 0;
std::size_t bytes = 0;

void Note(std::size_t size) noexcept {
    if (::GetCurrentThreadId() == watchedThread) {
        ++count;
        bytes += size;
    }
}

/// A function of the platform and the one that takes its place. Imported functions are data: the
/// names of the functions themselves can mean a step in between.
struct Stand {
    void* Original;
    void* Counting;
};

void* Exported(const wchar_t* module, const char* name) noexcept {
    return reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(module), name));
}

template <class Function>
Function* As(void* function) noexcept {
    return reinterpret_cast<Function*>(function);
}

// Where both HeapAlloc and the libraries of the platform end.
using Allocate = void* NTAPI(HANDLE, ULONG, SIZE_T);
using Reallocate = void* NTAPI(HANDLE, ULONG, void*, SIZE_T);
void* const allocate = Exported(L"ntdll.dll", "RtlAllocateHeap");
void* const reallocate = Exported(L"ntdll.dll", "RtlReAllocateHeap");
void* const newText = Exported(L"oleaut32.dll", "SysAllocStringLen");

void* NTAPI CountingAllocate(HANDLE heap, ULONG flags, SIZE_T size) {
    Note(size);
    return As<Allocate>(allocate)(heap, flags, size);
}

void* NTAPI CountingReallocate(HANDLE heap, ULONG flags, void* block, SIZE_T size) {
    Note(size);
    return As<Reallocate>(reallocate)(heap, flags, block, size);
}

BSTR STDAPICALLTYPE CountingNewText(const OLECHAR* text, UINT length) {
    Note(length * sizeof(OLECHAR));
    return As<BSTR STDAPICALLTYPE(const OLECHAR*, UINT)>(newText)(text, length);
}

const std::array<Stand, 3>& Stands() {
    static const std::array<Stand, 3> stands = {
        {{allocate, reinterpret_cast<void*>(&CountingAllocate)},
         {reallocate, reinterpret_cast<void*>(&CountingReallocate)},
         {newText, reinterpret_cast<void*>(&CountingNewText)}}};
    return stands;
}

void Write(void** entry, void* function) noexcept {
    DWORD protection = 0;
    ::VirtualProtect(static_cast<void*>(entry), sizeof *entry, PAGE_READWRITE, &protection);
    *entry = function;
    ::VirtualProtect(static_cast<void*>(entry), sizeof *entry, protection, &protection);
}

template <class T>
T* At(HMODULE module, std::size_t offset) noexcept {
    return reinterpret_cast<T*>(reinterpret_cast<BYTE*>(module) + offset);
}

std::vector<HMODULE> LoadedModules() {
    std::vector<HMODULE> modules(1024);
    DWORD size = 0;
    ::K32EnumProcessModules(::GetCurrentProcess(), modules.data(),
                            static_cast<DWORD>(modules.size() * sizeof(HMODULE)), &size);
    modules.resize(size / sizeof(HMODULE));
    return modules;
}

} // namespace

HeapWatch::HeapWatch() {
    for (HMODULE const module : LoadedModules()) {
        WatchModule(module);
    }
    count = 0;
    bytes = 0;
    watchedThread = ::GetCurrentThreadId();
}

HeapWatch::~HeapWatch() {
    watchedThread = 0;
    for (const auto& [entry, former] : replaced_) {
        Write(entry, former);
    }
}

std::size_t HeapWatch::Count() noexcept {
    return count;
}

std::size_t HeapWatch::Bytes() noexcept {
    return bytes;
}

void HeapWatch::WatchModule(HMODULE module) {
    const auto* const headers = At<IMAGE_NT_HEADERS>(
        module, static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.Size == 0) {
        return;
    }
    for (const auto* from = At<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
         from->FirstThunk != 0; ++from) {
        for (auto* entry = At<void*>(module, from->FirstThunk); *entry; ++entry) {
            WatchEntry(entry);
        }
    }
}

void HeapWatch::WatchEntry(void** entry) {
    for (const auto& [original, counting] : Stands()) {
        if (*entry == original) {
            replaced_.push_back({entry, original});
            Write(entry, counting);
        }
    }
}

} // namespace Quorvane
