// SPDX-License-Identifier: MIT
// Lets a module run out of memory.
#include "tests/memory/FailingAllocations.h"

#include <oleauto.h>

#include <cstring>

namespace Quorvane {
namespace {

bool isArmed = false;
Shortage shortage{};
std::size_t asked = 0;
std::ptrdiff_t blocks = 0;

/// Whether the allocation that is asked for now is to fail.
bool Fails() noexcept {
    if (!isArmed) {
        return false;
    }
    ++asked;
    return asked == shortage.First || (shortage.AndAllAfter && asked > shortage.First);
}

void* Noted(void* block) noexcept {
    blocks += block ? 1 : 0;
    return block;
}

template <class Function>
Function* As(void* function) noexcept {
    return reinterpret_cast<Function*>(function);
}

/// The one that an import stood for.
template <auto Stand>
void* original = nullptr;

void* Malloc(std::size_t size) {
    return Fails() ? nullptr : Noted(As<void*(std::size_t)>(original<&Malloc>)(size));
}

void* Calloc(std::size_t count, std::size_t size) {
    return Fails() ? nullptr
                   : Noted(As<void*(std::size_t, std::size_t)>(original<&Calloc>)(count, size));
}

void* Realloc(void* block, std::size_t size) {
    if (Fails()) {
        return nullptr;
    }
    void* const moved = As<void*(void*, std::size_t)>(original<&Realloc>)(block, size);
    return block ? moved : Noted(moved);
}

void Free(void* block) {
    blocks -= block ? 1 : 0;
    As<void(void*)>(original<&Free>)(block);
}

void* AlignedMalloc(std::size_t size, std::size_t alignment) {
    return Fails() ? nullptr
                   : Noted(As<void*(std::size_t, std::size_t)>(original<&AlignedMalloc>)(
                         size, alignment));
}

void AlignedFree(void* block) {
    blocks -= block ? 1 : 0;
    As<void(void*)>(original<&AlignedFree>)(block);
}

void* STDAPICALLTYPE TaskAlloc(SIZE_T size) {
    return Fails() ? nullptr : As<void * STDAPICALLTYPE(SIZE_T)>(original<&TaskAlloc>)(size);
}

HGLOBAL WINAPI NewGlobal(UINT flags, SIZE_T size) {
    return Fails() ? nullptr : As<HGLOBAL WINAPI(UINT, SIZE_T)>(original<&NewGlobal>)(flags, size);
}

BSTR STDAPICALLTYPE NewText(const OLECHAR* text, UINT length) {
    return Fails()
               ? nullptr
               : As<BSTR STDAPICALLTYPE(const OLECHAR*, UINT)>(original<&NewText>)(text, length);
}

SAFEARRAY* STDAPICALLTYPE NewVector(VARTYPE type, LONG bound, ULONG count) {
    return Fails() ? nullptr
                   : As<SAFEARRAY * STDAPICALLTYPE(VARTYPE, LONG, ULONG)>(original<&NewVector>)(
                         type, bound, count);
}

HRESULT STDAPICALLTYPE Copy(VARIANTARG* target, const VARIANTARG* source) {
    return Fails() ? E_OUTOFMEMORY
                   : As<HRESULT STDAPICALLTYPE(VARIANTARG*, const VARIANTARG*)>(original<&Copy>)(
                         target, source);
}

HRESULT STDAPICALLTYPE CopyOfIndirect(VARIANT* target, const VARIANTARG* source) {
    return Fails() ? E_OUTOFMEMORY
                   : As<HRESULT STDAPICALLTYPE(VARIANT*, const VARIANTARG*)>(
                         original<&CopyOfIndirect>)(target, source);
}

HRESULT STDAPICALLTYPE ChangeType(VARIANTARG* target, const VARIANTARG* source, USHORT flags,
                                  VARTYPE type) {
    using Function = HRESULT STDAPICALLTYPE(VARIANTARG*, const VARIANTARG*, USHORT, VARTYPE);
    return Fails() ? E_OUTOFMEMORY
                   : As<Function>(original<&ChangeType>)(target, source, flags, type);
}

HRESULT STDAPICALLTYPE ChangeTypeOf(VARIANTARG* target, const VARIANTARG* source, LCID locale,
                                    USHORT flags, VARTYPE type) {
    using Function = HRESULT STDAPICALLTYPE(VARIANTARG*, const VARIANTARG*, LCID, USHORT, VARTYPE);
    return Fails() ? E_OUTOFMEMORY
                   : As<Function>(original<&ChangeTypeOf>)(target, source, locale, flags, type);
}

HRESULT STDAPICALLTYPE NewErrorInfo(ICreateErrorInfo** info) {
    using Function = HRESULT STDAPICALLTYPE(ICreateErrorInfo**);
    return Fails() ? E_OUTOFMEMORY : As<Function>(original<&NewErrorInfo>)(info);
}

HRESULT STDAPICALLTYPE NewStream(HGLOBAL memory, BOOL release, IStream** stream) {
    using Function = HRESULT STDAPICALLTYPE(HGLOBAL, BOOL, IStream**);
    return Fails() ? E_OUTOFMEMORY : As<Function>(original<&NewStream>)(memory, release, stream);
}

HRESULT STDAPICALLTYPE NewAdviseHolder(IOleAdviseHolder** holder) {
    using Function = HRESULT STDAPICALLTYPE(IOleAdviseHolder**);
    return Fails() ? E_OUTOFMEMORY : As<Function>(original<&NewAdviseHolder>)(holder);
}

HRESULT STDAPICALLTYPE NewDataHolder(IDataAdviseHolder** holder) {
    using Function = HRESULT STDAPICALLTYPE(IDataAdviseHolder**);
    return Fails() ? E_OUTOFMEMORY : As<Function>(original<&NewDataHolder>)(holder);
}

HRESULT WINAPI NewFont(FONTDESC* description, REFIID iid, void** font) {
    using Function = HRESULT WINAPI(FONTDESC*, REFIID, void**);
    return Fails() ? E_OUTOFMEMORY : As<Function>(original<&NewFont>)(description, iid, font);
}

struct Import {
    const char* Name;
    void* Stand;
    void** Original;
};

template <auto Stand>
Import For(const char* name) {
    return {name, reinterpret_cast<void*>(Stand), &original<Stand>};
}

const Import Imports[] = {
    For<&Malloc>("malloc"),
    For<&Calloc>("calloc"),
    For<&Realloc>("realloc"),
    For<&Free>("free"),
    For<&AlignedMalloc>("_aligned_malloc"),
    For<&AlignedFree>("_aligned_free"),
    For<&TaskAlloc>("CoTaskMemAlloc"),
    For<&NewGlobal>("GlobalAlloc"),
    For<&NewText>("SysAllocStringLen"),
    For<&NewVector>("SafeArrayCreateVector"),
    For<&Copy>("VariantCopy"),
    For<&CopyOfIndirect>("VariantCopyInd"),
    For<&ChangeType>("VariantChangeType"),
    For<&ChangeTypeOf>("VariantChangeTypeEx"),
    For<&NewErrorInfo>("CreateErrorInfo"),
    For<&NewStream>("CreateStreamOnHGlobal"),
    For<&NewAdviseHolder>("CreateOleAdviseHolder"),
    For<&NewDataHolder>("CreateDataAdviseHolder"),
    For<&NewFont>("OleCreateFontIndirect"),
};

template <class T>
T* At(HMODULE module, std::size_t offset) noexcept {
    return reinterpret_cast<T*>(reinterpret_cast<BYTE*>(module) + offset);
}

void Write(void** entry, void* function) noexcept {
    DWORD protection = 0;
    ::VirtualProtect(static_cast<void*>(entry), sizeof *entry, PAGE_READWRITE, &protection);
    *entry = function;
    ::VirtualProtect(static_cast<void*>(entry), sizeof *entry, protection, &protection);
}

} // namespace

FailingAllocations::FailingAllocations(HMODULE module) {
    blocks = 0;
    Replace(module);
}

FailingAllocations::~FailingAllocations() {
    for (const auto& [place, function] : replaced_) {
        Write(place, function);
    }
}

void FailingAllocations::Arm(const Shortage& armed) {
    shortage = armed;
    asked = 0;
    isArmed = true;
}

std::size_t FailingAllocations::Disarm() {
    isArmed = false;
    return asked;
}

std::ptrdiff_t FailingAllocations::Blocks() noexcept {
    return blocks;
}

void FailingAllocations::Replace(HMODULE module) {
    const auto* const headers = At<IMAGE_NT_HEADERS>(
        module, static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (const auto* from = At<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
         from->FirstThunk != 0; ++from) {
        const auto* name = At<IMAGE_THUNK_DATA>(module, from->OriginalFirstThunk);
        for (auto* place = At<void*>(module, from->FirstThunk); *place; ++place, ++name) {
            const char* const import =
                At<IMAGE_IMPORT_BY_NAME>(module, name->u1.AddressOfData)->Name;
            for (const auto& [known, stand, former] : Imports) {
                if (std::strcmp(import, known) == 0) {
                    *former = *place;
                    replaced_.push_back({place, *place});
                    Write(place, stand);
                }
            }
        }
    }
}

} // namespace Quorvane
