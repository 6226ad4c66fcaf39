// SPDX-License-Identifier: MIT
// The three engines side by side over one installed system.
#include "bench/Rig.h"

#include <bit>
#include <cstdint>
#include <set>
#include <stdexcept>

#include "engine/Infer.h"
#include "shared/Definition.h"

namespace Quorvane::Bench {
namespace {

/// How many rules the reference evaluates while the engines are compared.
constexpr std::size_t ComparedRules = 1'000'000;

std::uint64_t BitsOf(const Value& value) {
    return std::bit_cast<std::uint64_t>(std::get<double>(value));
}

} // namespace

Rig& Rig::Of(const Workload& workload) {
    static std::unique_ptr<Rig> rig;
    if (!IsInstalled(workload)) {
        rig.reset();
        rig.reset(new Rig(workload));
        // Once is enough, and takes long with the reference.
        static std::set<std::string> compared;
        if (compared.insert(workload.Name).second) {
            rig->RequireAgreement(Change::All);
            rig->RequireAgreement(Change::One);
        }
    }
    return *rig;
}

Rig::Rig(const Workload& workload) {
    Install(workload);
    const Definition::ProcessState& state = Definition::State();
    auto& values = dynamic_cast<OwnValueDictionary&>(*state.InputValues);
    for (auto& [name, item] : values.Items) {
        inputs_.push_back(&item.Content);
    }
    reference_.PrepareRuleBase();
    dense_ = std::make_unique<DenseEngine>(reference_.Prepared);
}

void Rig::RequireAgreement(Change change) {
    const Stream stream = MakeStream(change);
    const std::size_t rules = Definition::State().RuleBase->Count();
    for (std::size_t i = 0; i < Stream::CycleCount && i * rules < ComparedRules; ++i) {
        Apply(stream, i);
        for (const Engine engine : {Engine::Product, Engine::Dense, Engine::Reference}) {
            Infer(engine);
        }
        auto dense = dense_->Outputs().begin();
        for (const auto& [output, value] : reference_.Prepared.OutputValues) {
            const Value& product = Definition::State().OutputValues->Get(output);
            if (BitsOf(product) != BitsOf(value) || BitsOf(*dense++) != BitsOf(value)) {
                throw std::runtime_error("the engines do not agree");
            }
        }
    }
}

void Rig::Infer(Engine engine) {
    switch (engine) {
    case Engine::Product:
        RunTime::Infer();
        break;
    case Engine::Dense:
        dense_->Infer();
        break;
    case Engine::Reference:
        reference_.Infer();
        break;
    }
}

} // namespace Quorvane::Bench
