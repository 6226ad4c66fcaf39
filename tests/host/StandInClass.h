// SPDX-License-Identifier: MIT
// StandInClass: makes the stand-in control a class of this process.
#pragma once

#include "shared/Text.h"
#include "tests/host/StandInControl.h"

namespace Quorvane::Host {

/// While it lives, CoCreateInstance of the class `Name()` makes stand-in controls.
class StandInClass {
  public:
    StandInClass();
    StandInClass(const StandInClass&) = delete;
    StandInClass& operator=(const StandInClass&) = delete;
    ~StandInClass();

    /// The class identifier in braces.
    Text Name() const;

  private:
    class Factory;

    std::vector<std::string> calls_;
    DWORD cookie_ = 0;
};

} // namespace Quorvane::Host
