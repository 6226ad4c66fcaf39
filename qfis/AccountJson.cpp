// SPDX-License-Identifier: MIT
// The account of a cycle, for programs.
#include "explain/Sentences.h"
#include "qfis/Accounts.h"
#include "qfis/Json.h"
#include "text/GetText.h"

namespace Quorvane::Qfis {
namespace {

using Explain::Blocker;
using Explain::Cause;
using Explain::Contribution;
using Explain::Evaluation;
using Explain::OutputState;
using System::FuzzySystem;

Json InputsJson(const FuzzySystem& system, const Evaluation& evaluation) {
    Json inputs = Json::array();
    for (std::size_t i = 0; i < system.Inputs.size(); ++i) {
        const Explain::InputState& state = evaluation.Inputs[i];
        Json degrees = Json::object();
        for (std::size_t j = 0; j < state.Degrees.size(); ++j) {
            degrees[Host::EncodeUtf8(system.Inputs[i].Terms[j].Name)] = ToJson(state.Degrees[j]);
        }
        inputs.push_back(
            {{"name", ToJson(system.Inputs[i].Name)},
             {"value", ToJson(state.Value)},
             {"inside", state.Value && Explain::IsInside(system.Inputs[i], *state.Value)},
             {"used", state.IsUsed},
             {"degrees", std::move(degrees)}});
    }
    return inputs;
}

Json RulesJson(const FuzzySystem& system, const Evaluation& evaluation) {
    Json rules = Json::array();
    for (std::size_t i = 0; i < evaluation.Strengths.size(); ++i) {
        if (evaluation.Strengths[i] != 0) {
            rules.push_back({{"rule", i + 1},
                             {"text", ToJson(Explain::RuleSentence(system, system.Rules[i]))},
                             {"weight", system.Rules[i].Weight},
                             {"strength", evaluation.Strengths[i]}});
        }
    }
    return rules;
}

Json OutputJson(const FuzzySystem& system, const Evaluation& evaluation,
                const OutputState& output) {
    Json json = {{"name", ToJson(output.Output.Name)},
                 {"value", ToJson(output.Value)},
                 {"default", output.Cause != Cause::RulesFire},
                 {"cause", ToJson(CauseSentence(output.Cause))}};
    if (output.Cause == Cause::RulesFire) {
        json["formula"] = ToJson(OutputFormula(output));
        for (const Contribution& one : output.Contributions) {
            const auto& term = system.Outputs[output.Output.Variable].Terms[one.Term];
            json["contributions"].push_back({{"rule", one.Rule + 1},
                                             {"term", ToJson(term.Name)},
                                             {"position", one.Position},
                                             {"strength", one.Strength},
                                             {"share", ShareOf(output, one)}});
        }
    }
    if (output.Cause == Cause::NoRuleFires) {
        for (const Blocker& blocker : BlockersOf(system, evaluation, output)) {
            json["blocked"].push_back(
                {{"rule", blocker.Rule + 1},
                 {"by", ToJson(BlockerSentence(system, evaluation, blocker))}});
        }
    }
    return json;
}

Json AccountJson(const FuzzySystem& system, const Evaluation& evaluation) {
    Json json = {{"inputs", InputsJson(system, evaluation)},
                 {"rules", RulesJson(system, evaluation)},
                 {"outputs", Json::array()}};
    for (const OutputState& output : evaluation.Outputs) {
        json["outputs"].push_back(OutputJson(system, evaluation, output));
    }
    if (evaluation.Fault) {
        json["failure"] = {{"reason", ToJson(FailureSentence(system, *evaluation.Fault))},
                           {"messageId", evaluation.Fault->MessageId},
                           {"message", ToJson(Main::GetText(evaluation.Fault->MessageId))}};
    }
    return json;
}

} // namespace

void WriteAccountAsJson(std::ostream& out, const FuzzySystem& system,
                        const Evaluation& evaluation) {
    out << AccountJson(system, evaluation).dump(2) << '\n';
}

} // namespace Quorvane::Qfis
