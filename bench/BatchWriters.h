// SPDX-License-Identifier: MIT
// Batches beside the control's own: what its speed is compared with.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/DenseEngine.h"
#include "shared/LinguisticVariable.h"

namespace Quorvane::Bench {

/// A system, how finely a batch divides its inputs, and how many points that gives.
struct BatchCase {
    std::size_t Workload;
    int Divisions;
    std::size_t Points;
};

/// The cases that are timed.
const std::vector<BatchCase>& BatchCases();

/// A folder for the files of batches, deleted with them at its end.
class BatchFolder {
  public:
    BatchFolder();
    ~BatchFolder();
    BatchFolder(const BatchFolder&) = delete;
    BatchFolder& operator=(const BatchFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    /// The bytes of both files, one after the other.
    std::string Bytes() const;

  private:
    std::filesystem::path path_;
};

/// The inputs of the installed system, in order, and where their values are.
struct GridInput {
    const LinguisticVariable* Variable;
    Value* Current;
};
std::vector<GridInput> GridInputs();

/// A batch as one writes it without a thought of speed: a recursion over the inputs, snprintf for
/// every number, the standard library's files. Throws std::runtime_error where a file cannot be
/// made.
void WritePlainBatch(DenseEngine& engine, const std::filesystem::path& folder, int divisions);

/// The same by the portable parts of the product: its grid walk, its engine, its number texts.
void WriteCoreBatch(const std::filesystem::path& folder, int divisions);

} // namespace Quorvane::Bench
