// SPDX-License-Identifier: MIT
// What the registry says of the module, derived from its class table.
#include "com/Registration.h"

#include <oleauto.h>

#include <charconv>
#include <iterator>
#include <string>

#include "com/ErrorBoundary.h"
#include "com/Module.h"
#include "com/RegistryJournal.h"
#include "com/Scoped.h"
#include "com/TypeLibrary.h"

// In the import library since Windows Vista, but in no header of the compiler.
extern "C" HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path,
                                                 OLECHAR* helpDirectory);
extern "C" HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD majorVersion,
                                                   WORD minorVersion, LCID locale, SYSKIND kind);

namespace Quorvane::Com {
namespace {

constexpr SYSKIND OwnKind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
constexpr REGSAM OtherWidth = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

Text GuidText(REFGUID guid) {
    wchar_t text[39];
    ::StringFromGUID2(guid, text, 39);
    return ToText(text);
}

Text DecimalText(DWORD number) {
    return Widen(std::to_string(number));
}

Text VersionText() {
    const ModuleDescription& module = DescribeModule();
    return DecimalText(module.MajorVersion) + u"." + DecimalText(module.MinorVersion);
}

Text ClassPath(const ClassEntry& entry) {
    return u"CLSID\\" + GuidText(*entry.Clsid);
}

Text VersionedProgId(const ClassRegistration& registration) {
    return Text(registration.ProgId) + u"." + Text(registration.ProgIdVersion);
}

/// The part of the registry that holds the classes of the scope.
RegistryKey OpenClasses(RegistrationScope scope) {
    auto* const hive = scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    HKEY classes = nullptr;
    CheckWin32(::RegCreateKeyExW(hive, L"Software\\Classes", 0, nullptr, 0, KEY_READ | KEY_WRITE,
                                 nullptr, &classes, nullptr));
    return RegistryKey(classes);
}

Text FolderOf(const Text& path) {
    return path.substr(0, path.find_last_of(u'\\'));
}

/// The registration of one class.
class ClassWriter {
  public:
    ClassWriter(RegistryJournal& journal, const ClassEntry& entry, const Text& modulePath)
        : journal_(journal), entry_(entry), modulePath_(modulePath), path_(ClassPath(entry)) {}

    void Write() {
        Default({}, Text(entry_.Registration.Title));
        WriteServer();
        WriteTypeLibrary();
        for (const GUID& category : entry_.Registration.Categories) {
            journal_.CreateKey(path_ + u"\\Implemented Categories\\" + GuidText(category));
        }
        if (!entry_.Registration.ProgId.empty()) {
            WriteProgIds();
        }
        if (entry_.Registration.IsControl) {
            WriteControl();
        }
    }

  private:
    void Default(TextView key, const Text& value) {
        journal_.SetText(key.empty() ? path_ : path_ + u"\\" + Text(key), {}, value);
    }

    void WriteServer() {
        Default(u"InprocServer32", modulePath_);
        journal_.SetText(path_ + u"\\InprocServer32", u"ThreadingModel", u"Apartment");
    }

    void WriteTypeLibrary() {
        Default(u"TypeLib", GuidText(*DescribeModule().TypeLibrary));
        Default(u"Version", VersionText());
    }

    void WriteProgIds() {
        const ClassRegistration& registration = entry_.Registration;
        const Text plain(registration.ProgId);
        const Text versioned = VersionedProgId(registration);
        Default(u"ProgID", versioned);
        Default(u"VersionIndependentProgID", plain);
        journal_.CreateKey(path_ + u"\\Programmable");
        for (const Text& name : {plain, versioned}) {
            journal_.SetText(name, {}, Text(registration.Title));
            journal_.SetText(name + u"\\CLSID", {}, GuidText(*entry_.Clsid));
        }
        journal_.SetText(plain + u"\\CurVer", {}, versioned);
    }

    void WriteControl() {
        const ClassRegistration& registration = entry_.Registration;
        journal_.CreateKey(path_ + u"\\Control");
        Default(u"MiscStatus", u"0");
        // The aspect that the bits are for: DVASPECT_CONTENT.
        Default(u"MiscStatus\\1", DecimalText(registration.MiscStatus));
        Default(u"ToolboxBitmap32", modulePath_ + u", " + DecimalText(registration.ToolboxBitmap));
    }

    RegistryJournal& journal_;
    const ClassEntry& entry_;
    const Text& modulePath_;
    Text path_;
};

void RegisterTypeLibrary(RegistrationScope scope, const Text& modulePath) {
    const auto library = LoadEmbeddedLibrary();
    // The platform's declarations lack const for what they only read.
    auto* const path = const_cast<wchar_t*>(Wide(modulePath));
    const Text folder = FolderOf(modulePath);
    auto* const helpDirectory = const_cast<wchar_t*>(Wide(folder));
    Check(scope == RegistrationScope::User
              ? ::RegisterTypeLibForUser(library.Get(), path, helpDirectory)
              : ::RegisterTypeLib(library.Get(), path, helpDirectory));
}

/// The key of the type library for the module's own width.
Text LibraryPath() {
    const ModuleDescription& module = DescribeModule();
    char locale[8];
    const auto* const end =
        std::to_chars(std::begin(locale), std::end(locale), module.Locale, 16).ptr;
    return u"TypeLib\\" + GuidText(*module.TypeLibrary) + u"\\" + VersionText() + u"\\" +
           Widen({std::begin(locale), end}) + (OwnKind == SYS_WIN64 ? u"\\win64" : u"\\win32");
}

void UnregisterTypeLibrary(RegistrationScope scope, HKEY classes) {
    const ModuleDescription& module = DescribeModule();
    const auto unregister =
        scope == RegistrationScope::User ? &::UnRegisterTypeLibForUser : &::UnRegisterTypeLib;
    const HRESULT result = unregister(*module.TypeLibrary, module.MajorVersion, module.MinorVersion,
                                      module.Locale, OwnKind);
    // The platforms differ in how they fail where it is not registered, which is no failure here.
    if (RegistryKey::Open(classes, LibraryPath(), KEY_READ)) {
        Check(result);
    }
}

HRESULT DeleteTree(HKEY parent, const Text& path) noexcept {
    const LSTATUS result = ::RegDeleteTreeW(parent, Wide(path));
    return result == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(result));
}

/// Registering the first class of a user makes the key that holds all of them.
void DeleteIfEmpty(HKEY parent, const Text& path) noexcept {
    const RegistryKey key = RegistryKey::Open(parent, path, KEY_READ);
    DWORD keys = 1;
    DWORD values = 1;
    ::RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                       nullptr, nullptr, nullptr, nullptr);
    if (keys == 0 && values == 0) {
        ::RegDeleteKeyW(parent, Wide(path));
    }
}

/// The two widths of the module share their programmatic names.
bool IsServedByOtherWidth(HKEY classes, const ClassEntry& entry) {
    return static_cast<bool>(RegistryKey::Open(classes, ClassPath(entry), KEY_READ | OtherWidth));
}

void UnregisterClass(HKEY classes, const ClassEntry& entry, HRESULT& failure) {
    const auto note = [&](HRESULT result) { failure = FAILED(failure) ? failure : result; };
    note(DeleteTree(classes, ClassPath(entry)));
    const ClassRegistration& registration = entry.Registration;
    if (!registration.ProgId.empty() && !IsServedByOtherWidth(classes, entry)) {
        note(DeleteTree(classes, Text(registration.ProgId)));
        note(DeleteTree(classes, VersionedProgId(registration)));
    }
}

} // namespace

void RegisterModule(RegistrationScope scope) {
    const Text modulePath = ModulePath();
    const RegistryKey classes = OpenClasses(scope);
    RegistryJournal journal(classes.Get());
    for (const ClassEntry& entry : DescribeModule().Classes) {
        ClassWriter(journal, entry, modulePath).Write();
    }
    // Last, since the journal cannot undo it.
    try {
        RegisterTypeLibrary(scope, modulePath);
    } catch (const HresultError&) {
        UnregisterTypeLibrary(scope, classes.Get());
        throw;
    }
    journal.Commit();
}

void UnregisterModule(RegistrationScope scope) {
    const RegistryKey classes = OpenClasses(scope);
    HRESULT failure = S_OK;
    for (const ClassEntry& entry : DescribeModule().Classes) {
        UnregisterClass(classes.Get(), entry, failure);
    }
    DeleteIfEmpty(classes.Get(), u"CLSID");
    UnregisterTypeLibrary(scope, classes.Get());
    Check(failure);
}

HRESULT InstallModule(bool install, const wchar_t* command) noexcept {
    return Guard([&] {
        const Text scopeName = ToText(command);
        const auto is = [&](const wchar_t* name) {
            return ::CompareStringOrdinal(Wide(scopeName), -1, name, -1, TRUE) == CSTR_EQUAL;
        };
        if (!is(L"") && !is(L"machine") && !is(L"user")) {
            throw HresultError(E_INVALIDARG);
        }
        const auto scope = is(L"user") ? RegistrationScope::User : RegistrationScope::Machine;
        if (install) {
            RegisterModule(scope);
        } else {
            UnregisterModule(scope);
        }
    });
}

} // namespace Quorvane::Com
