// SPDX-License-Identifier: MIT
// The counts that keep the module loaded, and the rule of the one thread.
#include "com/Module.h"

#include <atomic>
#include <mutex>
#include <utility>

#include "com/ErrorBoundary.h"
#include "com/Scoped.h"
#include "win/Handle.h"
#include "win/SlimLock.h"

namespace Quorvane::Com {
namespace {

std::atomic<LONG>& LockCount() {
    static std::atomic<LONG> count = 0;
    return count;
}

/// Which thread the instances live on, and how many they are.
struct InstanceThread {
    Win::SlimLock Guard;
    DWORD Id = 0;
    /// Tells of the thread's end: its id may by then be that of another thread.
    Win::KernelObject Thread;
    LONG Instances = 0;
    std::uint32_t Era = 1;

    bool HasEnded() const noexcept {
        return Thread && ::WaitForSingleObject(Thread.Get(), 0) == WAIT_OBJECT_0;
    }

    /// Leaves what an ended thread has not released where it is, for good.
    void GiveUp(void (*giveUpState)()) {
        if (giveUpState) {
            giveUpState();
        }
        Instances = 0;
        ++Era;
    }

    void Choose(DWORD thread) noexcept {
        Id = thread;
        Thread = Win::KernelObject(::OpenThread(SYNCHRONIZE, FALSE, thread));
    }
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

InstanceClaim InstanceClaim::ForThisThread(void (*giveUpState)()) {
    InstanceThread& instances = Instances();
    const std::lock_guard guard(instances.Guard);
    const DWORD thread = ::GetCurrentThreadId();
    if (instances.Instances > 0 && instances.HasEnded()) {
        instances.GiveUp(giveUpState);
    }
    if (instances.Instances > 0 && instances.Id != thread) {
        throw HresultError(RPC_E_WRONG_THREAD,
                           u"Instances of this component live on another thread; all instances of "
                           u"a process must be created on one thread.");
    }
    if (instances.Instances == 0) {
        instances.Choose(thread);
    }
    ++instances.Instances;
    InstanceClaim claim;
    claim.era_ = instances.Era;
    return claim;
}

InstanceClaim::InstanceClaim(InstanceClaim&& other) noexcept : era_(std::exchange(other.era_, 0)) {}

InstanceClaim& InstanceClaim::operator=(InstanceClaim&& other) noexcept {
    std::swap(era_, other.era_);
    return *this;
}

InstanceClaim::~InstanceClaim() {
    if (era_ != 0) {
        InstanceThread& instances = Instances();
        const std::lock_guard guard(instances.Guard);
        if (era_ == instances.Era) {
            --instances.Instances;
        }
    }
}

bool InstanceClaim::IsHeld() const noexcept {
    InstanceThread& instances = Instances();
    const std::lock_guard guard(instances.Guard);
    return era_ == instances.Era;
}

} // namespace Quorvane::Com
