// SPDX-License-Identifier: MIT
// What a host does while memory ends.
#pragma once

#include <span>

#include "tests/memory/ScarceHost.h"

namespace Quorvane {

/// Something that a host does, and what must be true of it.
struct Operation {
    const char* Name;
    /// What comes before, with memory enough. False where it fails.
    bool (*Prepare)(ScarceHost& host);
    /// May be repeated. S_OK, or E_OUTOFMEMORY where it has not done what it should.
    HRESULT (*Run)(ScarceHost& host);
    /// Whether a Run with memory enough has done all that it should.
    bool (*HasWorked)(ScarceHost& host);
};

std::span<const Operation> Operations();

} // namespace Quorvane
