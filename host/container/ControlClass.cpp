// SPDX-License-Identifier: MIT
// ControlClass: finds and creates the control that a form file names.
#include "host/container/ControlClass.h"

#include "host/container/HResult.h"
#include "host/container/Variant.h"

#include <cwchar>

namespace Quorvane::Host {

namespace {

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

bool IsClassIdentifier(const std::wstring& name) {
    return name.starts_with(L'{');
}

std::wstring NameOf(ITypeLib& library, UINT index) {
    Bstr name;
    Check(library.GetDocumentation(static_cast<int>(index), name.Receive(), nullptr, nullptr,
                                   nullptr),
          L"read the type library");
    return name.Text();
}

std::wstring LibraryName(ITypeLib& library) {
    return NameOf(library, static_cast<UINT>(-1));
}

GUID ClassAt(ITypeLib& library, UINT index) {
    ComPtr<ITypeInfo> info;
    Check(library.GetTypeInfo(index, info.Receive()), L"read the type library");
    TYPEATTR* attributes = nullptr;
    Check(info->GetTypeAttr(&attributes), L"read the type library");
    const GUID guid = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    return guid;
}

// "Library.Class.1" without its version number.
std::wstring WithoutVersion(const std::wstring& progId) {
    const std::size_t lastDot = progId.find_last_of(L'.');
    const bool hasVersion =
        lastDot != std::wstring::npos && lastDot + 1 < progId.size() &&
        progId.find_first_not_of(L"0123456789", lastDot + 1) == std::wstring::npos;
    return hasVersion ? progId.substr(0, lastDot) : progId;
}

CLSID ClassInLibrary(const std::filesystem::path& dll, const std::wstring& progId) {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(dll.c_str(), REGKIND_NONE, library.Receive()),
          L"read the type library in " + dll.wstring());
    const std::wstring prefix = LibraryName(*library.Get()) + L".";
    const std::wstring wanted = WithoutVersion(progId);
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind{};
        if (SUCCEEDED(library->GetTypeInfoType(i, &kind)) && kind == TKIND_COCLASS &&
            _wcsicmp((prefix + NameOf(*library.Get(), i)).c_str(), wanted.c_str()) == 0) {
            return ClassAt(*library.Get(), i);
        }
    }
    Fail(REGDB_E_CLASSNOTREG, L"create " + progId,
         L"no class of " + dll.wstring() + L" bears this name");
}

CLSID ParseClassIdentifier(const std::wstring& name) {
    CLSID clsid{};
    Check(CLSIDFromString(name.c_str(), &clsid), L"read the class identifier " + name);
    return clsid;
}

void FindRegistered(const std::wstring& progId, CLSID& clsid) {
    const HRESULT found = CLSIDFromProgID(progId.c_str(), &clsid);
    if (FAILED(found)) {
        Fail(found, L"create " + progId, L"no class of this name is registered");
    }
}

GetClassObject LoadLibraryFile(const std::filesystem::path& dll) {
    const HMODULE module = LoadLibraryExW(dll.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!module) {
        Fail(HRESULT_FROM_WIN32(GetLastError()), L"load " + dll.wstring(), {});
    }
    const FARPROC entry = GetProcAddress(module, "DllGetClassObject");
    if (!entry) {
        Fail(HRESULT_FROM_WIN32(GetLastError()), L"use " + dll.wstring(),
             L"it holds no COM classes");
    }
    return reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(entry));
}

} // namespace

ComPtr<IUnknown> CreateRegistered(const std::wstring& name) {
    CLSID clsid{};
    if (IsClassIdentifier(name)) {
        clsid = ParseClassIdentifier(name);
    } else {
        FindRegistered(name, clsid);
    }
    ComPtr<IUnknown> object;
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                           object.ReceiveVoid()),
          L"create " + name);
    return object;
}

ComPtr<IUnknown> CreateFromLibrary(const std::filesystem::path& dll, const std::wstring& name) {
    const std::filesystem::path file = std::filesystem::absolute(dll);
    const GetClassObject getClassObject = LoadLibraryFile(file);
    const CLSID clsid =
        IsClassIdentifier(name) ? ParseClassIdentifier(name) : ClassInLibrary(file, name);
    ComPtr<IClassFactory> factory;
    Check(getClassObject(clsid, __uuidof(IClassFactory), factory.ReceiveVoid()),
          L"find the class " + name);
    ComPtr<IUnknown> object;
    Check(factory->CreateInstance(nullptr, __uuidof(IUnknown), object.ReceiveVoid()),
          L"create " + name);
    return object;
}

ComPtr<IUnknown> CreateControl(const std::optional<std::filesystem::path>& dll,
                               const std::wstring& name) {
    return dll ? CreateFromLibrary(*dll, name) : CreateRegistered(name);
}

} // namespace Quorvane::Host
