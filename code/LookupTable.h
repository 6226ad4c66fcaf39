// SPDX-License-Identifier: MIT
// The outputs of a system over a regular grid, and interpolation between its points.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "code/CompiledSystem.h"
#include "code/GenerateC.h"

namespace Quorvane::Code {

/// A table of the outputs. Points of the grid follow each other as numbers do, the last input
/// changing fastest, and each has a number for every output.
class LookupTable {
  public:
    /// Throws CodeError for a table that would be too large, and where an output cannot be
    /// computed. The system has to live as long.
    LookupTable(const CompiledSystem& system, std::size_t divisions);

    /// The outputs at a point, as the generated code interpolates them.
    void Interpolate(std::span<const double> inputs, std::span<double> outputs) const;

    /// Compares the table with the system in the middle of its cells, or of some of them where they
    /// are many, and at random points.
    TableError Measure() const;

    std::size_t Divisions() const { return divisions_; }
    const std::vector<double>& Numbers() const { return numbers_; }

  private:
    void RequireRoom() const;
    void Fill();
    double GridValue(std::size_t input, std::size_t index) const;

    const CompiledSystem& system_;
    std::size_t divisions_;
    std::vector<double> numbers_;
};

} // namespace Quorvane::Code
