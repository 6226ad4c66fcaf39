// SPDX-License-Identifier: MIT
// ControlClass: finds and creates the control that a form file names.
#include "host/container/ControlClass.h"

#include <cwchar>

#include "com/FailedCall.h"
#include "com/Scoped.h"
#include "host/container/Paths.h"

namespace Quorvane::Host {
namespace {

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

bool IsClassIdentifier(const Text& name) {
    return name.starts_with(u'{');
}

Text NameOf(ITypeLib& library, UINT index) {
    Com::Bstr name;
    Com::Check(
        library.GetDocumentation(static_cast<int>(index), name.Put(), nullptr, nullptr, nullptr),
        u"read the type library");
    return Text(name.Characters());
}

Text LibraryName(ITypeLib& library) {
    return NameOf(library, static_cast<UINT>(-1));
}

GUID ClassAt(ITypeLib& library, UINT index) {
    Com::ComPtr<ITypeInfo> info;
    Com::Check(library.GetTypeInfo(index, info.Put()), u"read the type library");
    TYPEATTR* attributes = nullptr;
    Com::Check(info->GetTypeAttr(&attributes), u"read the type library");
    const GUID guid = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    return guid;
}

// "Library.Class.1" without its version number.
Text WithoutVersion(const Text& progId) {
    const std::size_t lastDot = progId.find_last_of(u'.');
    const bool hasVersion = lastDot != Text::npos && lastDot + 1 < progId.size() &&
                            progId.find_first_not_of(u"0123456789", lastDot + 1) == Text::npos;
    return hasVersion ? progId.substr(0, lastDot) : progId;
}

CLSID ClassInLibrary(const std::filesystem::path& dll, const Text& progId) {
    Com::ComPtr<ITypeLib> library;
    Com::Check(::LoadTypeLibEx(dll.c_str(), REGKIND_NONE, library.Put()),
               u"read the type library in " + PathText(dll));
    const Text prefix = LibraryName(*library.Get()) + u".";
    const Text wanted = WithoutVersion(progId);
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind{};
        if (SUCCEEDED(library->GetTypeInfoType(i, &kind)) && kind == TKIND_COCLASS &&
            _wcsicmp(Com::Wide(prefix + NameOf(*library.Get(), i)), Com::Wide(wanted)) == 0) {
            return ClassAt(*library.Get(), i);
        }
    }
    Com::Fail(REGDB_E_CLASSNOTREG, u"create " + progId,
              u"no class of " + PathText(dll) + u" bears this name");
}

CLSID ParseClassIdentifier(const Text& name) {
    CLSID clsid{};
    Com::Check(::CLSIDFromString(Com::Wide(name), &clsid), u"read the class identifier " + name);
    return clsid;
}

void FindRegistered(const Text& progId, CLSID& clsid) {
    const HRESULT found = ::CLSIDFromProgID(Com::Wide(progId), &clsid);
    if (FAILED(found)) {
        Com::Fail(found, u"create " + progId, u"no class of this name is registered");
    }
}

GetClassObject LoadLibraryFile(const std::filesystem::path& dll) {
    const HMODULE module = ::LoadLibraryExW(dll.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!module) {
        Com::Fail(HRESULT_FROM_WIN32(::GetLastError()), u"load " + PathText(dll), {});
    }
    const FARPROC entry = ::GetProcAddress(module, "DllGetClassObject");
    if (!entry) {
        Com::Fail(HRESULT_FROM_WIN32(::GetLastError()), u"use " + PathText(dll),
                  u"it holds no COM classes");
    }
    return reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(entry));
}

} // namespace

Com::ComPtr<IUnknown> CreateRegistered(const Text& name) {
    CLSID clsid{};
    if (IsClassIdentifier(name)) {
        clsid = ParseClassIdentifier(name);
    } else {
        FindRegistered(name, clsid);
    }
    Com::ComPtr<IUnknown> object;
    Com::Check(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                                  object.PutVoid()),
               u"create " + name);
    return object;
}

Com::ComPtr<IUnknown> CreateFromLibrary(const std::filesystem::path& dll, const Text& name) {
    const std::filesystem::path file = std::filesystem::absolute(dll);
    const GetClassObject getClassObject = LoadLibraryFile(file);
    const CLSID clsid =
        IsClassIdentifier(name) ? ParseClassIdentifier(name) : ClassInLibrary(file, name);
    Com::ComPtr<IClassFactory> factory;
    Com::Check(getClassObject(clsid, __uuidof(IClassFactory), factory.PutVoid()),
               u"find the class " + name);
    Com::ComPtr<IUnknown> object;
    Com::Check(factory->CreateInstance(nullptr, __uuidof(IUnknown), object.PutVoid()),
               u"create " + name);
    return object;
}

Com::ComPtr<IUnknown> CreateControl(const std::optional<std::filesystem::path>& dll,
                                    const Text& name) {
    return dll ? CreateFromLibrary(*dll, name) : CreateRegistered(name);
}

} // namespace Quorvane::Host
