// SPDX-License-Identifier: MIT
// The commands. Each returns its exit code and throws InputError for bad input.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "qfis/Console.h"
#include "qfis/Csv.h"

namespace Quorvane::Qfis {

/// A file with a system, and which of its controls where it is a form.
struct SystemOptions {
    std::string File;
    std::string Control;
    bool Json = false;
};

struct ExplainOptions : SystemOptions {
    /// "NAME=NUMBER", or "NAME=" for an input without value.
    std::vector<std::string> Inputs;
};

struct RunOptions : SystemOptions {
    /// A file, or "-" for what comes in.
    std::string Readings = "-";
    CsvDialect Dialect;
};

struct TestOptions : RunOptions {
    double Tolerance = 0;
};

struct TableOptions : SystemOptions {
    std::int32_t Divisions = 0;
    std::string Folder = ".";
};

struct DiffOptions : SystemOptions {
    std::string Other;
};

struct ConvertOptions : SystemOptions {
    std::string Output;
    /// The name of a format; empty for that of the output's ending.
    std::string Format;
};

struct CheckOptions : SystemOptions {};

struct CodeOptions : SystemOptions {
    std::string Folder = ".";
    /// Of the function and the files; empty for that of the system's file.
    std::string Name;
    /// For a table with so many divisions of each input; none for the system itself.
    std::optional<std::int32_t> TableDivisions;
    /// C is what there is, whether it is asked for or not.
    bool IsC = true;
};

int Explain(const ExplainOptions& options, const Console& console);
int Run(const RunOptions& options, const Console& console);
int Test(const TestOptions& options, const Console& console);
int Table(const TableOptions& options, const Console& console);
int Diff(const DiffOptions& options, const Console& console);
int Convert(const ConvertOptions& options, const Console& console);
int Check(const CheckOptions& options, const Console& console);
int Code(const CodeOptions& options, const Console& console);

} // namespace Quorvane::Qfis
