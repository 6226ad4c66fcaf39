// SPDX-License-Identifier: MIT
// A system as the tables that generated code consists of.
#pragma once

#include <array>
#include <cstdint>
#include <exception>
#include <span>
#include <string>
#include <vector>

#include "system/FuzzySystem.h"

namespace Quorvane::Code {

/// Why there is no code for a system.
class CodeError : public std::exception {
  public:
    explicit CodeError(std::string message) : message_(std::move(message)) {}

    /// In UTF-8.
    const char* what() const noexcept override { return message_.c_str(); }

  private:
    std::string message_;
};

struct CompiledTerm {
    std::uint32_t Input = 0;
    /// The index of the term in its input.
    std::uint32_t Term = 0;
    std::array<double, 4> Points{};
};

struct CompiledPosition {
    std::uint32_t Output = 0;
    std::uint32_t Term = 0;
    double Value = 0;
};

struct CompiledRule {
    double Weight = 0;
    /// Terms, as indices from 1, in the order of the rule; 0, which always holds, stands for none.
    std::vector<std::uint32_t> When;
    /// For each output a position, as an index from 1; 0 for none.
    std::vector<std::uint32_t> Then;
};

struct CompiledInput {
    Text Name;
    double Lower = 0;
    double Upper = 0;
};

struct CompiledOutput {
    Text Name;
    /// The value where no rule fires.
    double Default = 0;
    double Lower = 0;
    double Upper = 0;
    /// Whether cycles set the output; else it keeps its default.
    bool IsSet = true;
};

/// All inputs, the outputs that a cycle has, the terms and positions that rules use, and the rules.
struct CompiledSystem {
    std::vector<CompiledInput> Inputs;
    std::vector<CompiledOutput> Outputs;
    std::vector<CompiledTerm> Terms;
    std::vector<CompiledPosition> Positions;
    std::vector<CompiledRule> Rules;
};

/// Throws CodeError for a system without outputs, one whose every cycle fails, and one that writes
/// an output's name in another case than its variable has.
CompiledSystem Compile(const System::FuzzySystem& system);

/// Computes the outputs as the generated code does and as the engine does, to the bit. False where
/// arithmetic leaves the range of a Double; then the outputs are their defaults.
bool Run(const CompiledSystem& system, std::span<const double> inputs, std::span<double> outputs);

} // namespace Quorvane::Code
