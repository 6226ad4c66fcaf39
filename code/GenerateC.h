// SPDX-License-Identifier: MIT
// A fuzzy system as C99.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "code/CompiledSystem.h"

namespace Quorvane::Code {

/// The texts of NAME.h and NAME.c.
struct GeneratedCode {
    std::string Header;
    std::string Source;
};

/// The SHA-256 of a system's plain definition texts in UTF-8, each followed by a line feed.
std::string ChecksumOf(const System::FuzzySystem& system);

/// Code that computes the outputs of a system as the engine does, to the bit:
///
///     int NAME(const double *inputs, double *outputs);
///
/// It needs no library and no heap, keeps no state, and fits any C99 or C++ compiler. Throws
/// CodeError for a system that Compile refuses, and for a name that is none of a C function.
GeneratedCode GenerateC(const System::FuzzySystem& system, std::string_view name);

/// How far interpolation is from the engine.
struct TableError {
    /// The output and inputs where it is largest, and by how much.
    std::uint32_t Output = 0;
    std::vector<double> Inputs;
    double Largest = 0;
    /// For each output, the largest and the mean error.
    std::vector<double> LargestOf;
    std::vector<double> MeanOf;
    /// At how many points it was measured.
    std::size_t Points = 0;
};

struct GeneratedTable {
    GeneratedCode Code;
    TableError Error;
};

/// Code that looks the outputs up in a table over a regular grid, with so many divisions of each
/// input, and interpolates between its points. What it may differ by is measured, written into the
/// header and returned. Throws CodeError as GenerateC does, and for a table of more than a million
/// numbers or more than eight inputs.
GeneratedTable GenerateTable(const System::FuzzySystem& system, std::string_view name,
                             std::size_t divisions);

} // namespace Quorvane::Code
