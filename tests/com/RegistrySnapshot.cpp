// SPDX-License-Identifier: MIT
// Reading a registry tree.
#include "tests/com/RegistrySnapshot.h"

#include "com/RegistryJournal.h"
#include "com/Scoped.h"

namespace Quorvane {
namespace {

void CollectValues(HKEY key, const Text& path, RegistrySnapshot& snapshot) {
    for (DWORD index = 0;; ++index) {
        wchar_t name[512];
        DWORD length = 512;
        wchar_t data[1024]{};
        DWORD size = sizeof data - sizeof(wchar_t);
        const LSTATUS result = ::RegEnumValueW(key, index, name, &length, nullptr, nullptr,
                                               reinterpret_cast<BYTE*>(data), &size);
        if (result != ERROR_SUCCESS && result != ERROR_MORE_DATA) {
            return;
        }
        snapshot[path + u"@" + Com::ToText(name)] = Com::ToText(data);
    }
}

void Collect(HKEY key, const Text& path, int levels, RegistrySnapshot& snapshot) {
    CollectValues(key, path, snapshot);
    for (DWORD index = 0; levels > 0; ++index) {
        wchar_t name[512];
        DWORD length = 512;
        if (::RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            return;
        }
        const Text child = path + u"\\" + Com::ToText(name);
        snapshot[child] = u"";
        const auto opened = Com::RegistryKey::Open(key, Com::ToText(name), KEY_READ);
        Collect(opened.Get(), child, levels - 1, snapshot);
    }
}

} // namespace

RegistrySnapshot TakeSnapshot(HKEY root, const Text& path, int levels) {
    RegistrySnapshot snapshot;
    if (const auto key = Com::RegistryKey::Open(root, path, KEY_READ)) {
        Collect(key.Get(), {}, levels, snapshot);
    }
    return snapshot;
}

} // namespace Quorvane
