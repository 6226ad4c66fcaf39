// SPDX-License-Identifier: MIT
// Recorded inference cycles: systems, inputs and the outputs that belong to them, to the bit.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quorvane::TestSupport {

/// One cycle. An absent number is an item that is Empty.
struct RecordedCycle {
    /// By input variable, in the order of the inputs text.
    std::vector<std::optional<double>> Inputs;
    /// The text id of the message of the routine that failed, 0 for a cycle that succeeds.
    int FailedMessage = 0;
    /// By output variable, in the order of the outputs text, as a host sees them afterwards that
    /// has set no error outputs. Absent also for an output that rule 0 does not name.
    std::vector<std::optional<double>> Outputs;
};

/// A system, as its plain definition texts in ASCII, and cycles that are run on it in their order.
struct RecordedSystem {
    std::string Name;
    std::string Inputs;
    std::string Outputs;
    std::string Rules;
    std::vector<RecordedCycle> Cycles;
};

/// The recorded systems of the tests, as text; the format is described at its top.
std::string_view CycleFileText();

/// Reads that format. Throws std::runtime_error that names the line.
std::vector<RecordedSystem> ReadCycles(std::string_view text);

/// Writes a system in that format.
std::string WriteSystem(const RecordedSystem& system);

} // namespace Quorvane::TestSupport
