// SPDX-License-Identifier: MIT
// qfis explain: why each output is what it is.
#include <algorithm>

#include "explain/Sentences.h"
#include "host/formfile/Utf8.h"
#include "qfis/Commands.h"
#include "qfis/Files.h"
#include "qfis/Json.h"
#include "shared/NumberText.h"
#include "shared/StringKeyedDictionary.h"
#include "text/GetText.h"

namespace Quorvane::Qfis {
namespace {

using Explain::Blocker;
using Explain::Cause;
using Explain::Contribution;
using Explain::Evaluation;
using Explain::OutputState;
using System::FuzzySystem;

/// More rules than these that do not fire are left out.
constexpr std::size_t MostBlockers = 8;

std::string Utf8(TextView text) {
    return Host::EncodeUtf8(text);
}

std::string Number(const std::optional<double>& number) {
    return number ? std::string(NumberCharacters(*number).View()) : "(none)";
}

std::size_t FindInput(const FuzzySystem& system, const std::string& name) {
    const Text wanted = Host::DecodeUtf8(name);
    const auto found = std::ranges::find_if(system.Inputs, [&](const auto& input) {
        return KeyEqual{KeyComparison::IgnoreCase}(input.Name, wanted);
    });
    if (found == system.Inputs.end()) {
        throw InputError("there is no input \"" + name + "\"");
    }
    return static_cast<std::size_t>(found - system.Inputs.begin());
}

/// The values given; an input that is not has its lower bound, at which the control starts.
Explain::Reading ReadingOf(const FuzzySystem& system, const std::vector<std::string>& given) {
    Explain::Reading reading;
    for (const System::InputVariable& input : system.Inputs) {
        reading.emplace_back(input.Lower);
    }
    for (const std::string& assignment : given) {
        const auto mark = assignment.find('=');
        if (mark == std::string::npos) {
            throw InputError("expected NAME=NUMBER, not \"" + assignment + "\"");
        }
        const std::string value = assignment.substr(mark + 1);
        auto& number = reading[FindInput(system, assignment.substr(0, mark))];
        number = FieldNumber(value, '.');
        if (!number && !IsEmptyField(value)) {
            throw InputError("expected a number, not \"" + value + "\"");
        }
    }
    return reading;
}

double ShareOf(const OutputState& output, const Contribution& contribution) {
    return contribution.Strength / output.Sum.Denominator;
}

/// Tells people.
class Account {
  public:
    Account(const FuzzySystem& system, const Evaluation& evaluation, std::ostream& out)
        : system_(system), evaluation_(evaluation), out_(out) {}

    void Write() {
        WriteInputs();
        if (evaluation_.Fault) {
            const std::int32_t id = evaluation_.Fault->MessageId;
            out_ << "\nThe cycle fails: " << Utf8(FailureSentence(system_, *evaluation_.Fault))
                 << ".\nThe control shows: " << Utf8(Main::GetText(id)) << '\n';
        } else {
            WriteRules();
        }
        WriteOutputs();
    }

  private:
    void WriteInputs() {
        out_ << "Inputs\n";
        for (std::size_t i = 0; i < system_.Inputs.size(); ++i) {
            const System::InputVariable& input = system_.Inputs[i];
            const Explain::InputState& state = evaluation_.Inputs[i];
            out_ << "  " << Utf8(input.Name) << " = " << Number(state.Value);
            if (state.Value && !Explain::IsInside(input, *state.Value)) {
                out_ << ", outside " << Number(input.Lower) << " to " << Number(input.Upper);
            }
            out_ << (state.IsUsed ? ":" : ", which no rule names:");
            for (std::size_t j = 0; j < input.Terms.size(); ++j) {
                out_ << (j == 0 ? " " : ", ") << Utf8(input.Terms[j].Name) << ' '
                     << Number(state.Degrees[j]);
            }
            out_ << '\n';
        }
    }

    void WriteRules() {
        out_ << "\nRules that fire\n";
        bool fires = false;
        for (std::size_t i = 0; i < system_.Rules.size(); ++i) {
            if (evaluation_.Strengths[i] != 0) {
                fires = true;
                out_ << "  " << i + 1 << ": "
                     << Utf8(Explain::RuleSentence(system_, system_.Rules[i]))
                     << "\n      strength " << Utf8(StrengthFormula(system_, evaluation_, i))
                     << '\n';
            }
        }
        out_ << (fires ? "" : "  none\n");
    }

    void WriteOutputs() {
        out_ << "\nOutputs\n";
        for (const OutputState& output : evaluation_.Outputs) {
            out_ << "  " << Utf8(output.Output.Name) << " = ";
            if (output.Cause == Cause::RulesFire) {
                out_ << Utf8(OutputFormula(output)) << '\n';
                WriteShares(output);
            } else {
                out_ << Number(output.Value)
                     << ", the default: " << Utf8(CauseSentence(output.Cause)) << '\n';
                WriteBlockers(output);
            }
        }
    }

    void WriteShares(const OutputState& output) {
        for (const Contribution& one : output.Contributions) {
            const auto& term = system_.Outputs[output.Output.Variable].Terms[one.Term];
            // Three digits are enough of a share.
            const double percent =
                static_cast<double>(static_cast<std::int64_t>(ShareOf(output, one) * 1000 + 0.5)) /
                10;
            out_ << "      rule " << one.Rule + 1 << ": " << Utf8(term.Name) << " at "
                 << Number(one.Position) << ", " << Number(percent) << " %\n";
        }
    }

    void WriteBlockers(const OutputState& output) {
        if (output.Cause != Cause::NoRuleFires) {
            return;
        }
        const auto blockers = BlockersOf(system_, evaluation_, output);
        for (std::size_t i = 0; i < blockers.size() && i < MostBlockers; ++i) {
            out_ << "      rule " << blockers[i].Rule + 1 << ": "
                 << Utf8(BlockerSentence(system_, evaluation_, blockers[i])) << '\n';
        }
        if (blockers.size() > MostBlockers) {
            out_ << "      and " << blockers.size() - MostBlockers << " more\n";
        }
    }

    const FuzzySystem& system_;
    const Evaluation& evaluation_;
    std::ostream& out_;
};

Json InputsJson(const FuzzySystem& system, const Evaluation& evaluation) {
    Json inputs = Json::array();
    for (std::size_t i = 0; i < system.Inputs.size(); ++i) {
        const Explain::InputState& state = evaluation.Inputs[i];
        Json degrees = Json::object();
        for (std::size_t j = 0; j < state.Degrees.size(); ++j) {
            degrees[Utf8(system.Inputs[i].Terms[j].Name)] = ToJson(state.Degrees[j]);
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

int Explain(const ExplainOptions& options, const Console& console) {
    const FuzzySystem system = LoadSystem(options.File, options.Control);
    const Evaluation evaluation = Explain::Evaluate(system, ReadingOf(system, options.Inputs));
    if (options.Json) {
        console.Out << AccountJson(system, evaluation).dump(2) << '\n';
    } else {
        Account(system, evaluation, console.Out).Write();
    }
    return evaluation.Fault ? Findings : Fine;
}

} // namespace Quorvane::Qfis
