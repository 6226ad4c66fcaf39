// SPDX-License-Identifier: MIT
// The counts that keep the module loaded, and the rule of the one thread.
#include "com/Module.h"

#include <atomic>
#include <mutex>
#include <utility>

#include "com/ErrorBoundary.h"
#include "com/Scoped.h"

namespace Quorvane::Com {
namespace {

std::atomic<LONG>& LockCount() {
    static std::atomic<LONG> count = 0;
    return count;
}

/// Which thread the instances live on, and how many they are.
struct InstanceThread {
    std::mutex Guard;
    DWORD Thread = 0;
    LONG Instances = 0;
};

InstanceThread& Instances() {
    static InstanceThread instances;
    return instances;
}

} // namespace

HMODULE ModuleHandle() noexcept {
    static const char place = 0;
    HMODULE module = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                             GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         reinterpret_cast<const wchar_t*>(&place), &module);
    return module;
}

Text ModulePath() {
    Text path(MAX_PATH, u'\0');
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(ModuleHandle(), reinterpret_cast<wchar_t*>(path.data()),
                                 static_cast<DWORD>(path.size()));
        if (length == 0) {
            Check(HRESULT_FROM_WIN32(::GetLastError()));
        }
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

ModuleLock::ModuleLock() noexcept {
    LockModule(true);
}
ModuleLock::~ModuleLock() {
    LockModule(false);
}

void LockModule(bool lock) noexcept {
    LockCount() += lock ? 1 : -1;
}
LONG ModuleLockCount() noexcept {
    return LockCount();
}

InstanceClaim InstanceClaim::ForThisThread() {
    InstanceThread& instances = Instances();
    const std::lock_guard guard(instances.Guard);
    const DWORD thread = ::GetCurrentThreadId();
    if (instances.Instances > 0 && instances.Thread != thread) {
        throw HresultError(RPC_E_WRONG_THREAD,
                           u"Instances of this component live on another thread; all instances of "
                           u"a process must be created on one thread.");
    }
    instances.Thread = thread;
    ++instances.Instances;
    InstanceClaim claim;
    claim.held_ = true;
    return claim;
}

InstanceClaim::InstanceClaim(InstanceClaim&& other) noexcept
    : held_(std::exchange(other.held_, false)) {}

InstanceClaim& InstanceClaim::operator=(InstanceClaim&& other) noexcept {
    std::swap(held_, other.held_);
    return *this;
}

InstanceClaim::~InstanceClaim() {
    if (held_) {
        InstanceThread& instances = Instances();
        const std::lock_guard guard(instances.Guard);
        --instances.Instances;
    }
}

} // namespace Quorvane::Com
