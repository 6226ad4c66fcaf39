// SPDX-License-Identifier: MIT
// An activation context made from a manifest file, active while it exists.
#pragma once

#include <windows.h>

#include "shared/Text.h"

namespace Quorvane {

class ActivationContext {
  public:
    /// Assemblies that the manifest depends on are looked for beside it.
    explicit ActivationContext(const Text& manifest);
    ~ActivationContext();
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;

    /// Whether the context could be made; the reason is GetLastError's.
    bool IsActive() const noexcept { return cookie_ != 0; }

  private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
};

} // namespace Quorvane
