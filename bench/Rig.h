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

    /// Gives the inputs their values for a cycle.
    void Apply(const Stream& stream, std::size_t cycle) {
        if (stream.Changing == Change::One) {
            SetInput(stream.ChosenInput(cycle), stream.Values[cycle]);
        } else if (stream.Changing == Change::All) {
            const double* value = &stream.Values[cycle * inputs_.size()];
            for (std::size_t input = 0; input < inputs_.size(); ++input) {
                SetInput(input, *value++);
            }
        }
    }

    void Infer(Engine engine);

    DenseEngine& Dense() { return *dense_; }

  private:
    explicit Rig(const Workload& workload);

    void RequireAgreement(Change change);
    void SetInput(std::size_t input, double value) { std::get<double>(*inputs_[input]) = value; }

    std::vector<Value*> inputs_;
    Reference::Evaluator reference_;
    std::unique_ptr<DenseEngine> dense_;
};

} // namespace Quorvane::Bench
