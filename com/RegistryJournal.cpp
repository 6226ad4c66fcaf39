// SPDX-License-Identifier: MIT
// Registry changes with an undo record of each.
#include "com/RegistryJournal.h"

#include "com/ErrorBoundary.h"
#include "com/Scoped.h"

namespace Quorvane::Com {

RegistryKey RegistryKey::Open(HKEY parent, const Text& path, REGSAM access) noexcept {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(parent, Wide(path), 0, access, &key) != ERROR_SUCCESS) {
        return {};
    }
    return RegistryKey(key);
}

RegistryJournal::~RegistryJournal() {
    while (!changes_.empty()) {
        Undo(changes_.back());
        changes_.pop_back();
    }
}

void RegistryJournal::CreateKey(const Text& path) {
    // One key at a time, so that the record names exactly those that were made here.
    for (std::size_t end = path.find(u'\\');; end = path.find(u'\\', end + 1)) {
        const Text part = path.substr(0, end);
        HKEY key = nullptr;
        DWORD disposition = 0;
        CheckWin32(::RegCreateKeyExW(root_, Wide(part), 0, nullptr, 0, KEY_READ | KEY_WRITE,
                                     nullptr, &key, &disposition));
        const RegistryKey made(key);
        if (disposition == REG_CREATED_NEW_KEY) {
            changes_.push_back({part, std::nullopt, std::nullopt});
        }
        if (end == Text::npos) {
            return;
        }
    }
}

void RegistryJournal::SetText(const Text& path, const Text& name, const Text& value) {
    CreateKey(path);
    const RegistryKey key = RegistryKey::Open(root_, path, KEY_READ | KEY_WRITE);
    changes_.push_back({path, name, Read(key.Get(), name)});
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(char16_t));
    CheckWin32(::RegSetValueExW(key.Get(), Wide(name), 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(value.c_str()), size));
}

std::optional<RegistryJournal::OldValue> RegistryJournal::Read(HKEY key, const Text& name) {
    OldValue value{};
    DWORD size = 0;
    if (::RegQueryValueExW(key, Wide(name), nullptr, &value.Type, nullptr, &size) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    value.Bytes.resize(size);
    CheckWin32(::RegQueryValueExW(key, Wide(name), nullptr, nullptr, value.Bytes.data(), &size));
    return value;
}

void RegistryJournal::Undo(const Change& change) const noexcept {
    if (!change.ValueName) {
        ::RegDeleteTreeW(root_, Wide(change.Path));
        return;
    }
    const RegistryKey key = RegistryKey::Open(root_, change.Path, KEY_WRITE);
    if (!change.Before) {
        ::RegDeleteValueW(key.Get(), Wide(*change.ValueName));
        return;
    }
    ::RegSetValueExW(key.Get(), Wide(*change.ValueName), 0, change.Before->Type,
                     change.Before->Bytes.data(), static_cast<DWORD>(change.Before->Bytes.size()));
}

} // namespace Quorvane::Com
