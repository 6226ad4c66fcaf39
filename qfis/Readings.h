// SPDX-License-Identifier: MIT
// Readings and cases in CSV, over the inputs and outputs of a system.
#pragma once

#include "qfis/Csv.h"
#include "system/FuzzySystem.h"

namespace Quorvane::Qfis {

/// The columns of a header that belong to variables, by name and without regard to case.
struct Columns {
    /// For each input its column.
    std::vector<std::size_t> Inputs;
    /// For each output its column, where there is one.
    std::vector<std::optional<std::size_t>> Outputs;
};

/// Finds the columns in a header. Throws InputError, at the header's line, where an input has none.
Columns FindColumns(const CsvReader& header, const System::FuzzySystem& system);

/// A field that is neither empty nor a number.
struct BadField {
    std::size_t Line = 0;
    std::size_t Column = 0;
    std::string Text;
};

/// The inputs of a record: none for one that is empty, missing or no number. The first bad field is
/// told, where there is one.
std::optional<BadField> ReadInputs(const CsvReader& record, const Columns& columns,
                                   char decimalMark, std::vector<std::optional<double>>& inputs);

} // namespace Quorvane::Qfis
