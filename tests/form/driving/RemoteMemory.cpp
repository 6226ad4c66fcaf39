// SPDX-License-Identifier: MIT
// Memory in another program, for messages that carry addresses.
#include "tests/form/driving/RemoteMemory.h"

#include "tests/form/driving/Wait.h"

namespace Quorvane::Driving {

namespace {

HANDLE OpenProcessOf(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    return OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
}

} // namespace

RemoteMemory::RemoteMemory(HWND window, std::size_t size)
    : process_(OpenProcessOf(window)),
      address_(process_ ? VirtualAllocEx(process_, nullptr, size, MEM_COMMIT, PAGE_READWRITE)
                        : nullptr) {
    if (!address_) {
        if (process_) {
            CloseHandle(process_);
        }
        throw DriveError("no memory in the driven program; it may have ended");
    }
}

RemoteMemory::~RemoteMemory() {
    VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
    CloseHandle(process_);
}

void RemoteMemory::WriteBytes(const void* bytes, std::size_t size) const {
    WriteProcessMemory(process_, address_, bytes, size, nullptr);
}

void RemoteMemory::ReadBytes(void* bytes, std::size_t size) const {
    ReadProcessMemory(process_, address_, bytes, size, nullptr);
}

} // namespace Quorvane::Driving
