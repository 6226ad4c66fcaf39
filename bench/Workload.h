// SPDX-License-Identifier: MIT
// The fuzzy systems and the streams of input values that the engines are timed on.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "shared/Text.h"

namespace Quorvane::Bench {

/// A fuzzy system as its plain definition texts.
struct Workload {
    std::string Name;
    Text Inputs;
    Text Outputs;
    Text Rules;
};

/// A system whose rules cover every combination of terms, the first ruleCount of them. The terms of
/// an input overlap by halves, so up to two have a degree at any value.
Workload MakeGrid(std::string name, std::uint32_t inputs, std::uint32_t terms,
                  std::uint32_t outputs, std::uint32_t ruleCount);

/// A system of two terms an input whose rules each name four inputs, and one output, of many.
Workload MakeSparse(std::string name, std::uint32_t inputs, std::uint32_t outputs,
                    std::uint32_t ruleCount);

/// W1 to W5, from a controller of nine rules to 32,767 rules and to 32 inputs.
const std::vector<Workload>& Workloads();

/// Makes the system that of the process: parses its texts and prepares its rules. Nothing is done
/// when it is so already.
void Install(const Workload& workload);
bool IsInstalled(const Workload& workload);
/// To be called after the model has been replaced by other means.
void ForgetInstalled();

/// Which inputs have another value in each cycle.
enum class Change { All, One, Nothing };

/// What the inputs are before each cycle, in an endless round of CycleCount cycles. They are now
/// and then exactly at a point of a term, and now and then outside the universe.
struct Stream {
    /// So many that a processor cannot learn them by heart; a few thousand it can.
    static constexpr std::size_t CycleCount = 32768;

    std::uint32_t InputCount;
    Change Changing;
    /// The new values of each cycle: of all inputs, of one, or of none.
    std::vector<double> Values;

    /// The input that changes in a cycle where one does.
    std::uint32_t ChosenInput(std::size_t cycle) const {
        return static_cast<std::uint32_t>(cycle % InputCount);
    }
};

/// The stream for the system that is installed; the same on every platform.
Stream MakeStream(Change change);

} // namespace Quorvane::Bench
