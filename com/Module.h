// SPDX-License-Identifier: MIT
// What the plumbing knows of the module it is linked into, and what keeps that module loaded.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

#include "com/ClassTable.h"

namespace Quorvane::Com {

/// The facts of a module. The module that links the plumbing defines DescribeModule.
struct ModuleDescription {
    /// The classes that the factory makes and that registration writes.
    std::span<const ClassEntry> Classes;
    /// The type library embedded as resource 1, and the version and locale it is registered under.
    const GUID* TypeLibrary;
    WORD MajorVersion;
    WORD MinorVersion;
    LCID Locale;
    /// Whether the module holds state that must not be lost by unloading it; may be null.
    bool (*HoldsState)() noexcept;
    /// Called when the thread of the instances has ended without releasing them: parts from what
    /// they shared without calling or releasing any object in it. May be null; throws
    /// std::bad_alloc, and then has done nothing.
    void (*GiveUpState)();
};

const ModuleDescription& DescribeModule() noexcept;

/// The handle of the module that this code is linked into; it needs no DllMain to note it.
HMODULE ModuleHandle() noexcept;

/// The full path of the module's file. Throws HresultError.
Text ModulePath();

/// Keeps the module loaded while it exists. Every COM object of the module owns one.
class ModuleLock {
  public:
    ModuleLock() noexcept;
    ~ModuleLock();
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

/// The same without an owner, for IClassFactory::LockServer.
void LockModule(bool lock) noexcept;

/// How many COM objects and locks keep the module loaded.
LONG ModuleLockCount() noexcept;

/// The claim of an instance that a host created to the one thread that instances may live on. The
/// first instance chooses the thread, the last one to go frees the choice. A thread that has ended
/// frees it as well: its instances, which nobody may call any more, are given up.
class InstanceClaim {
  public:
    /// No claim at all.
    InstanceClaim() noexcept = default;

    /// A claim for the current thread. `giveUpState` is that of the module's description: objects
    /// of a program, which no host creates, need no description. Throws
    /// HresultError(RPC_E_WRONG_THREAD) with a description while instances live on another living
    /// thread.
    static InstanceClaim ForThisThread(void (*giveUpState)());

    InstanceClaim(const InstanceClaim&) = delete;
    InstanceClaim& operator=(const InstanceClaim&) = delete;
    InstanceClaim(InstanceClaim&& other) noexcept;
    InstanceClaim& operator=(InstanceClaim&& other) noexcept;
    ~InstanceClaim();

    /// False for no claim and for one that was given up with its thread.
    bool IsHeld() const noexcept;

  private:
    /// Counts the threads that instances have lived on, from 1; 0 for no claim.
    std::uint32_t era_ = 0;
};

} // namespace Quorvane::Com
