// SPDX-License-Identifier: MIT
// Whatever allocation of the module fails: no crash, a clear error, the next call works, and
// nothing stays behind. Each operation runs in a process of its own, which says where it was if it
// ends.
#include <objbase.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <sstream>
#include <string>
#include <tuple>

#include "com/Module.h"
#include "tests/com/support/ChildProcess.h"
#include "tests/memory/Operations.h"

namespace Quorvane {
namespace {

constexpr std::size_t Never = std::numeric_limits<std::size_t>::max();

/// What a fresh module and host have left behind once all is released.
struct Remains {
    std::ptrdiff_t Blocks;
    int References;

    bool operator==(const Remains&) const = default;
};

struct Outcome {
    /// How many allocations the operation asked for.
    std::size_t Asked;
    HRESULT Result;
    HRESULT NextResult;
    bool NextWorked;
    Remains Left;
};

Outcome RunOnce(const Operation& operation, const Shortage& shortage) {
    Outcome outcome{};
    ScarceHost host;
    EXPECT_TRUE(operation.Prepare(host));
    host.Memory().Arm(shortage);
    outcome.Result = operation.Run(host);
    outcome.Asked = host.Memory().Disarm();
    outcome.NextResult = operation.Run(host);
    outcome.NextWorked = operation.HasWorked(host);
    host.Clear();
    outcome.Left = {FailingAllocations::Blocks(), host.Left()};
    return outcome;
}

/// Prints what is wrong; nothing where all is well.
void Judge(const Outcome& outcome, const Remains& expected) {
    if (outcome.Result != S_OK && outcome.Result != E_OUTOFMEMORY) {
        std::printf("answers %08lx\n", static_cast<unsigned long>(outcome.Result));
    }
    if (outcome.NextResult != S_OK) {
        std::printf("answers %08lx to the next call\n",
                    static_cast<unsigned long>(outcome.NextResult));
    }
    if (!outcome.NextWorked) {
        std::printf("does not work in the next call\n");
    }
    if (outcome.Left != expected) {
        std::printf("leaves %d blocks and %d references more\n",
                    static_cast<int>(outcome.Left.Blocks - expected.Blocks),
                    outcome.Left.References - expected.References);
    }
}

/// The child: lets one allocation after the other fail, from `first` on, and prints "at N" before
/// each, what is wrong after it, and "last N" at the end.
int RunChildProcess(const Operation& operation, bool andAllAfter, std::size_t first) {
    const Outcome enough = RunOnce(operation, {Never, false});
    Judge(enough, {enough.Left.Blocks, 0});
    for (std::size_t failing = first;; ++failing) {
        std::printf("at %u\n", static_cast<unsigned>(failing));
        std::fflush(stdout);
        const Outcome outcome = RunOnce(operation, {failing, andAllAfter});
        Judge(outcome, enough.Left);
        if (outcome.Asked < failing) {
            std::printf("last %u\n", static_cast<unsigned>(outcome.Asked));
            return 0;
        }
    }
}

/// What a child has told of itself.
struct Report {
    std::size_t At = 0;
    std::size_t Last = 0;
};

Report Read(const std::string& output) {
    Report report;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == "at") {
            words >> report.At;
        } else if (word == "last") {
            words >> report.Last;
        } else {
            ADD_FAILURE() << "allocation " << report.At << ": " << line;
        }
    }
    return report;
}

using Case = std::tuple<Operation, bool>;

class OutOfMemory : public testing::TestWithParam<Case> {};

TEST_P(OutOfMemory, EndsInAnErrorAndNothingElse) {
    const auto& [operation, andAllAfter] = GetParam();
    constexpr int MostCrashes = 5;
    constexpr DWORD LongestRun = 300000;
    Report report;
    for (int crashes = 0; report.Last == 0 && crashes < MostCrashes; ++crashes) {
        const Text command = u"\"" + Com::ModulePath() + u"\" " + Widen(operation.Name) +
                             (andAllAfter ? u" all " : u" one ") +
                             Widen(std::to_string(report.At + 1));
        const ChildResult child = RunChild(command, LongestRun);
        report = Read(child.Output);
        EXPECT_NE(report.Last, 0u)
            << "allocation " << report.At << " ends the process: " << std::hex << child.ExitCode;
    }
    RecordProperty("Allocations", static_cast<int>(report.Last));
    std::printf("%u allocations\n", static_cast<unsigned>(report.Last));
}

std::string NameOf(const testing::TestParamInfo<Case>& test) {
    const auto& [operation, andAllAfter] = test.param;
    return std::string(operation.Name) + (andAllAfter ? "AndNothingAfter" : "Once");
}

INSTANTIATE_TEST_SUITE_P(
    , OutOfMemory,
    testing::Combine(testing::ValuesIn(Operations().begin(), Operations().end()), testing::Bool()),
    NameOf);

} // namespace
} // namespace Quorvane

int main(int count, char** arguments) {
    using namespace Quorvane;
    testing::InitGoogleTest(&count, arguments);
    if (::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED) != S_OK) {
        return 1;
    }
    int result = 1;
    if (count == 4) {
        const auto operations = Operations();
        const auto found = std::ranges::find(
            operations, std::string_view(arguments[1]),
            [](const Operation& operation) { return std::string_view(operation.Name); });
        if (found != operations.end()) {
            result = RunChildProcess(*found, std::string_view(arguments[2]) == "all",
                                     std::stoul(arguments[3]));
        }
    } else {
        result = RUN_ALL_TESTS();
    }
    ::CoUninitialize();
    return result;
}
