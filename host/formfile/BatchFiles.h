// SPDX-License-Identifier: MIT
// BatchFiles: the two files that a control writes when it tabulates its response.
#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

namespace Quorvane::Host {

/// The points of a batch, the values of each one behind the other.
struct BatchPoints {
    std::size_t InputCount = 0;
    std::size_t OutputCount = 0;
    std::vector<double> Inputs;
    std::vector<double> Outputs;

    /// The number of points.
    std::size_t Size() const { return InputCount == 0 ? 0 : Inputs.size() / InputCount; }
    double Input(std::size_t point, std::size_t input) const {
        return Inputs[point * InputCount + input];
    }
    double Output(std::size_t point, std::size_t output) const {
        return Outputs[point * OutputCount + output];
    }
};

/// Reads InData.txt and OutData.txt. Throws std::runtime_error for files that cannot be read, have
/// a line with another number of values, or do not fit together. What is no finite number counts as
/// 0.
BatchPoints ReadBatch(const std::filesystem::path& folder, std::size_t inputCount,
                      std::size_t outputCount);

} // namespace Quorvane::Host
