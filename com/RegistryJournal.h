// SPDX-License-Identifier: MIT
// Registry changes that are undone unless they are committed.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "shared/Text.h"

namespace Quorvane::Com {

/// An owned registry key.
class RegistryKey {
  public:
    RegistryKey() noexcept = default;
    explicit RegistryKey(HKEY key) noexcept : key_(key) {}
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    RegistryKey& operator=(RegistryKey&& other) noexcept {
        std::swap(key_, other.key_);
        return *this;
    }
    ~RegistryKey() {
        if (key_) {
            ::RegCloseKey(key_);
        }
    }

    HKEY Get() const noexcept { return key_; }
    explicit operator bool() const noexcept { return key_ != nullptr; }

    /// An existing key, nothing where there is none or it may not be opened.
    static RegistryKey Open(HKEY parent, const Text& path, REGSAM access) noexcept;

  private:
    HKEY key_ = nullptr;
};

/// Writes keys and values below a root. Its destructor puts everything back as it was, in reverse
/// order, unless Commit was called.
class RegistryJournal {
  public:
    /// `root` must outlive the journal.
    explicit RegistryJournal(HKEY root) noexcept : root_(root) {}
    ~RegistryJournal();
    RegistryJournal(const RegistryJournal&) = delete;
    RegistryJournal& operator=(const RegistryJournal&) = delete;

    /// Creates the key, with the keys above it, where it does not exist. Throws HresultError.
    void CreateKey(const Text& path);

    /// Sets a text value, creating the key; an empty name means the key's default value. Throws
    /// HresultError.
    void SetText(const Text& path, const Text& name, const Text& value);

    /// Keeps the changes.
    void Commit() noexcept { changes_.clear(); }

  private:
    struct OldValue {
        DWORD Type;
        std::vector<BYTE> Bytes;
    };

    /// A key that was made, or a value and what it was before.
    struct Change {
        Text Path;
        std::optional<Text> ValueName;
        std::optional<OldValue> Before;
    };

    static std::optional<OldValue> Read(HKEY key, const Text& name);
    void Undo(const Change& change) const noexcept;

    HKEY root_;
    std::vector<Change> changes_;
};

} // namespace Quorvane::Com
