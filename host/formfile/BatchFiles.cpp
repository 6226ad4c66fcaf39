// SPDX-License-Identifier: MIT
// BatchFiles: the two files that a control writes when it tabulates its response.
#include "host/formfile/BatchFiles.h"

#include "host/formfile/FilePath.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace Quorvane::Host {
namespace {

/// Appends the values of a line; how many there are.
std::size_t AppendNumbers(std::string_view line, std::vector<double>& numbers) {
    constexpr std::string_view Separators = ", \r";
    std::size_t count = 0;
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(Separators), line.size()));
        if (line.empty()) {
            return count;
        }
        const auto end = std::min(line.find_first_of(Separators), line.size());
        double number = 0;
        std::from_chars(line.data(), line.data() + end, number);
        numbers.push_back(std::isfinite(number) ? number : 0);
        line.remove_prefix(end);
        ++count;
    }
}

std::vector<double> ReadRows(const std::filesystem::path& path, std::size_t width) {
    std::ifstream file(path);
    if (!file || !IsFilePath(path)) {
        throw std::runtime_error("The batch wrote no file " + path.filename().string() + ".");
    }
    std::vector<double> numbers;
    for (std::string line; std::getline(file, line);) {
        if (AppendNumbers(line, numbers) != width) {
            throw std::runtime_error("The file " + path.filename().string() +
                                     " is not of a batch of this form.");
        }
    }
    return numbers;
}

} // namespace

BatchPoints ReadBatch(const std::filesystem::path& folder, std::size_t inputCount,
                      std::size_t outputCount) {
    BatchPoints points{inputCount, outputCount, ReadRows(folder / "InData.txt", inputCount),
                       ReadRows(folder / "OutData.txt", outputCount)};
    if (points.Size() == 0 || points.Outputs.size() != points.Size() * outputCount) {
        throw std::runtime_error("The two batch files do not fit together.");
    }
    return points;
}

} // namespace Quorvane::Host
