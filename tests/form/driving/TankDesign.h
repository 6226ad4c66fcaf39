// SPDX-License-Identifier: MIT
// Designing a system from nothing by mouse and keyboard: how hard a pump works for a tank.
#pragma once

#include "tests/form/driving/PageHands.h"

#include <functional>

namespace Quorvane::Driving {

/// Called where there is something to look at, with a name for it.
using Look = std::function<void(const std::string& name, HWND window)>;

/// In the open page, replaces whatever system there is by that of the tank:
///
///     Level   0..100   Low  0, 0, 20, 80        High   20, 80, 100, 100
///     Inflow  0..10    Small 0, 0, 0, 10        Large  0, 10, 10, 10
///     Pump    0..1000  Off 0, Half 500, Full 1000
///
///     Level    Inflow    Pump   weight
///     Low      Small     Off    1
///     Low      Large     Half   1
///     High     Small     Half   1
///     High     Large     Full   0.5
void DesignTank(const FormProgram& program, const PageHands& page, const Look& look);

/// A cycle of the tank's system, worked out by hand.
struct TankCycle {
    const wchar_t* Level;
    const wchar_t* Inflow;
    const wchar_t* Pump;
};

/// Level 65 is Low to (80-65)/60 = 0.25 and High to (65-20)/60 = 0.75. With Inflow 10, all Large:
/// (0.25 x 500 + 0.75 x 0.5 x 1000) / (0.25 + 0.75 x 0.5) = 500 / 0.625 = 800.
inline constexpr TankCycle TankCycles[] = {
    {L"65", L"10", L"800"}, {L"80", L"0", L"500"}, {L"100", L"10", L"1000"}, {L"20", L"0", L"0"}};

} // namespace Quorvane::Driving
