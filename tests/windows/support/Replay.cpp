// SPDX-License-Identifier: MIT
// Playing a container's calls back.
#include "tests/windows/support/Replay.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include "com/ErrorBoundary.h"
#include "tests/com/support/Systems.h"

namespace Quorvane {
namespace {

constexpr RECT Position{10, 10, 330, 210};

} // namespace

bool ReplayedHost::Calls(const char* step) const {
    return std::ranges::any_of(
        Start, [step](const ReplayStep& own) { return std::strcmp(own.Name, step) == 0; });
}

Replay::Replay(const ReplayedHost& host)
    : Window(Position, SW_HIDE), Control(NewControl()),
      Bag(Com::MakeObject<TestBag>(PropertiesOf(Adder))), Events(Com::MakeObject<EventSink>()) {
    host.PrepareSite(TheSite());
}

void Replay::Play(const std::vector<ReplayStep>& steps) {
    for (const ReplayStep& step : steps) {
        const HRESULT result = step.Call(*this);
        if (FAILED(result) && !step.MayFail) {
            failures_.emplace_back(step.Name, result);
        }
    }
}

std::string Replay::DescribeFailures() const {
    std::ostringstream text;
    for (const auto& [step, result] : failures_) {
        text << step << " gave " << std::hex << result << "; ";
    }
    return text.str();
}

bool Replay::HasReported(HRESULT result) const {
    return std::ranges::any_of(failures_,
                               [result](const auto& failure) { return failure.second == result; });
}

} // namespace Quorvane
