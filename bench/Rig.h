// SPDX-License-Identifier: MIT
// The three engines side by side over one installed system.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bench/DenseEngine.h"
#include "bench/Workload.h"
#include "tests/reference/Evaluator.h"

namespace Quorvane::Bench {

/// The product's engine works on the process; the other two beside it, over the same model.
enum class Engine { Product, Dense, Reference };

class Rig {
  public:
    /// The engines over a workload. Only the last one asked for is kept: the product's engine has
    /// one system at a time. Throws std::runtime_error where the engines do not agree to the bit.
    static Rig& Of(const Workload& workload);

    void Apply(const std::vector<InputChange>& changes) {
        for (const InputChange& change : changes) {
            *inputs_[change.Input] = change.Value;
        }
    }

    void Infer(Engine engine);

    DenseEngine& Dense() { return *dense_; }

  private:
    explicit Rig(const Workload& workload);

    void RequireAgreement(Change change);

    std::vector<Value*> inputs_;
    Reference::Evaluator reference_;
    std::unique_ptr<DenseEngine> dense_;
};

} // namespace Quorvane::Bench
