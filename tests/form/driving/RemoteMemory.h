// SPDX-License-Identifier: MIT
// Memory in another program, for messages that carry addresses.
#pragma once

#include <windows.h>

#include <type_traits>

namespace Quorvane::Driving {

/// A block in the process of a window, freed with the object. Throws DriveError.
class RemoteMemory {
  public:
    RemoteMemory(HWND window, std::size_t size);

    /// A block that holds a copy of the value.
    template <class T>
    requires(!std::is_arithmetic_v<T>) RemoteMemory(HWND window, const T& value)
        : RemoteMemory(window, sizeof value) {
        static_assert(std::is_trivially_copyable_v<T>);
        WriteBytes(&value, sizeof value);
    }
    ~RemoteMemory();
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    void* Address() const { return address_; }
    LPARAM Parameter() const { return reinterpret_cast<LPARAM>(address_); }

    template <class T>
    T Read() const {
        static_assert(std::is_trivially_copyable_v<T>);
        T value{};
        ReadBytes(&value, sizeof value);
        return value;
    }

  private:
    void WriteBytes(const void* bytes, std::size_t size) const;
    void ReadBytes(void* bytes, std::size_t size) const;

    HANDLE process_;
    void* address_;
};

} // namespace Quorvane::Driving
