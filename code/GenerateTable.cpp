// SPDX-License-Identifier: MIT
// A fuzzy system as a table in C99 and a function that interpolates in it.
#include <algorithm>

#include "code/CText.h"
#include "code/GenerateC.h"
#include "code/LookupTable.h"

namespace Quorvane::Code {
namespace {

std::string Details(const CompiledSystem& system, const LookupTable& table,
                    const TableError& error) {
    std::string text =
        "/* Looks the outputs up in a table with " + std::to_string(table.Divisions()) +
        " divisions of each input and interpolates between\n"
        " * its points, linearly in each input. An input outside its range counts as the nearer\n"
        " * bound. Always returns 0. Errors measured at " +
        std::to_string(error.Points) + " points:\n";
    for (std::size_t i = 0; i < system.Outputs.size(); ++i) {
        text += " *     " + InComment(system.Outputs[i].Name) + ": at most " +
                NumberConstant(error.LargestOf[i]) + ", in the mean " +
                NumberConstant(error.MeanOf[i]) + "\n";
    }
    if (!error.Inputs.empty()) {
        text += " * The largest one is of " + InComment(system.Outputs[error.Output].Name) + " at";
        for (std::size_t i = 0; i < error.Inputs.size(); ++i) {
            text += (i == 0 ? " " : ", ") + InComment(system.Inputs[i].Name) + " = " +
                    NumberConstant(error.Inputs[i]);
        }
        text += ".\n";
    }
    return text + " */\n";
}

std::string List(const CompiledSystem& system, double CompiledInput::*bound) {
    std::string text;
    for (const CompiledInput& input : system.Inputs) {
        text += (text.empty() ? "" : ", ") + NumberConstant(input.*bound);
    }
    return text;
}

/// A line for each point of the grid.
std::string Rows(const CompiledSystem& system, const LookupTable& table) {
    std::string text;
    const std::size_t outputs = system.Outputs.size();
    for (std::size_t i = 0; i < table.Numbers().size(); ++i) {
        text += i % outputs == 0 ? "    " : " ";
        text += NumberConstant(table.Numbers()[i]);
        text += i % outputs + 1 == outputs ? ",\n" : ",";
    }
    return text;
}

constexpr std::string_view Function =
    "(const double *inputs, double *outputs)\n"
    "{\n"
    "    double fractions[COUNT_INPUTS];\n"
    "    unsigned long first = 0;\n"
    "    unsigned long corner;\n"
    "    unsigned i;\n"
    "    for (i = 0; i < COUNT_INPUTS; ++i) {\n"
    "        double x = inputs[i] > lower[i] ? inputs[i] : lower[i];\n"
    "        double position;\n"
    "        unsigned long cell;\n"
    "        if (x > upper[i])\n"
    "            x = upper[i];\n"
    "        position = (x - lower[i]) / (upper[i] - lower[i]) * DIVISIONS;\n"
    "        cell = (unsigned long)position;\n"
    "        if (cell > DIVISIONS - 1)\n"
    "            cell = DIVISIONS - 1;\n"
    "        fractions[i] = position - (double)cell;\n"
    "        first = first * (DIVISIONS + 1) + cell;\n"
    "    }\n"
    "    for (i = 0; i < COUNT_OUTPUTS; ++i)\n"
    "        outputs[i] = 0;\n"
    "    for (corner = 0; corner < 1ul << COUNT_INPUTS; ++corner) {\n"
    "        double weight = 1;\n"
    "        unsigned long offset = 0;\n"
    "        for (i = 0; i < COUNT_INPUTS; ++i) {\n"
    "            const unsigned long is_upper = corner >> i & 1;\n"
    "            weight *= is_upper ? fractions[i] : 1 - fractions[i];\n"
    "            offset = offset * (DIVISIONS + 1) + is_upper;\n"
    "        }\n"
    "        for (i = 0; i < COUNT_OUTPUTS; ++i)\n"
    "            outputs[i] += weight * table[(first + offset) * COUNT_OUTPUTS + i];\n"
    "    }\n"
    "    return 0;\n"
    "}\n";

std::string Replaced(std::string_view code, std::string_view mark, std::string_view value) {
    std::string text(code);
    for (auto at = text.find(mark); at != std::string::npos;
         at = text.find(mark, at + value.size())) {
        text.replace(at, mark.size(), value);
    }
    return text;
}

std::string Source(const CompiledSystem& system, const LookupTable& table, std::string_view name) {
    const std::string upper = UpperCase(name);
    std::string function = Replaced(Function, "DIVISIONS", std::to_string(table.Divisions()));
    function = Replaced(function, "COUNT", upper);
    return ArithmeticGuard(upper) + "#include \"" + std::string(name) + ".h\"\n\n" +
           "static const double lower[] = {" + List(system, &CompiledInput::Lower) + "};\n" +
           "static const double upper[] = {" + List(system, &CompiledInput::Upper) + "};\n\n" +
           "/* The outputs at each point; the last input changes fastest. */\n" +
           "static const double table[] = {\n" + Rows(system, table) + "};\n\nint " +
           std::string(name) + function;
}

} // namespace

GeneratedTable GenerateTable(const System::FuzzySystem& system, std::string_view name,
                             std::size_t divisions) {
    RequireFunctionName(name);
    const CompiledSystem compiled = Compile(system);
    const LookupTable table(compiled, divisions);
    const TableError error = table.Measure();
    const std::string checksum = ChecksumOf(system);
    return {{MakeHeader(compiled, name, checksum, Details(compiled, table, error)),
             Banner(std::string(name) + ".c", "a fuzzy system, as a table.", checksum) +
                 Source(compiled, table, name)},
            error};
}

} // namespace Quorvane::Code
