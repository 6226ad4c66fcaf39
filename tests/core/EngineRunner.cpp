// SPDX-License-Identifier: MIT
// The engine and the plain evaluator behind one face.
#include "tests/core/EngineRunner.h"

#include "engine/Infer.h"
#include "engine/PrepareRuleBase.h"
#include "tests/core/CoreTest.h"
#include "tests/reference/Evaluator.h"

namespace Quorvane {
namespace {

class Engine final : public EngineRunner {
  public:
    void PrepareRuleBase() override { RunTime::PrepareRuleBase(); }
    void Infer() override { RunTime::Infer(); }
    std::int32_t CurrentErrorId() const override { return Definition::State().CurrentErrorId; }

    std::vector<Text> OutputNames() const override {
        const auto& outputs = Definition::State().OutputValues;
        return outputs ? KeysOf(outputs->Items) : std::vector<Text>();
    }

    Value Output(TextView name) const override {
        const auto& outputs = Definition::State().OutputValues;
        return outputs ? outputs->Get(name) : Value();
    }

    void ApplyDefaults() override {
        for (const Text& name : OutputNames()) {
            Definition::State().OutputValues->Put(
                name, Definition::State().DefaultOutputValues->Get(name));
        }
    }
};

class PlainEvaluator final : public EngineRunner {
  public:
    void PrepareRuleBase() override { evaluator_.PrepareRuleBase(); }
    void Infer() override { evaluator_.Infer(); }
    std::int32_t CurrentErrorId() const override { return evaluator_.CurrentErrorId; }

    std::vector<Text> OutputNames() const override {
        return KeysOf(evaluator_.Prepared.OutputValues);
    }

    Value Output(TextView name) const override {
        const Value* const output = evaluator_.Prepared.OutputValues.Find(name);
        return output ? *output : Value();
    }

    void ApplyDefaults() override {
        for (auto& [name, value] : evaluator_.Prepared.OutputValues) {
            value = Definition::State().DefaultOutputValues->Get(name);
        }
    }

  private:
    Reference::Evaluator evaluator_;
};

} // namespace

std::unique_ptr<EngineRunner> MakeEngine() {
    return std::make_unique<Engine>();
}

std::unique_ptr<EngineRunner> MakePlainEvaluator() {
    return std::make_unique<PlainEvaluator>();
}

} // namespace Quorvane
