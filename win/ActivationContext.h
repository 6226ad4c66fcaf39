// SPDX-License-Identifier: MIT
// Activation contexts: which version of the common controls a window gets.
#pragma once

#include <windows.h>

#include <memory>

#include "win/Counted.h"

namespace Quorvane::Win {

/// The activation context of the manifest that a DLL carries for windows of its own, the resource
/// ISOLATIONAWARE_MANIFEST_RESOURCE_ID. Where the platform makes none, the context of the host
/// stays in force.
class ActivationContext {
  public:
    explicit ActivationContext(HMODULE module) noexcept;
    ~ActivationContext();

    /// The one context of this module's windows, made when it is first asked for and kept while
    /// somebody has it: the platform reads and resolves the manifest for each anew. Throws
    /// std::bad_alloc.
    static std::shared_ptr<const ActivationContext> Shared(HMODULE module);

    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;

    HANDLE Get() const noexcept { return context_; }

  private:
    HANDLE context_;
};

/// Puts a context in force on this thread for as long as it lives.
class ActivationScope {
  public:
    explicit ActivationScope(const ActivationContext& context) noexcept
        : active_(context.Get() != INVALID_HANDLE_VALUE &&
                  ::ActivateActCtx(context.Get(), &cookie_)) {}
    ~ActivationScope() {
        if (active_) {
            ::DeactivateActCtx(0, cookie_);
        }
    }
    ActivationScope(const ActivationScope&) = delete;
    ActivationScope& operator=(const ActivationScope&) = delete;

  private:
    ULONG_PTR cookie_ = 0;
    bool active_;
};

} // namespace Quorvane::Win
