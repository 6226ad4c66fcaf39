// SPDX-License-Identifier: MIT
// The account of a cycle, for people.
#include <algorithm>
#include <cmath>

#include "explain/Sentences.h"
#include "host/formfile/Utf8.h"
#include "qfis/Accounts.h"
#include "shared/NumberText.h"
#include "text/GetText.h"

namespace Quorvane::Qfis {
namespace {

using Explain::Cause;
using Explain::Contribution;
using Explain::Evaluation;
using Explain::OutputState;
using System::FuzzySystem;

/// Of the causes that keep rules from firing, more than these are left out.
constexpr std::size_t MostCauses = 8;

std::string Utf8(TextView text) {
    return Host::EncodeUtf8(text);
}

std::string Number(const std::optional<double>& number) {
    return number ? std::string(NumberCharacters(*number).View()) : "(none)";
}

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
                static_cast<double>(std::lround(ShareOf(output, one) * 1000)) / 10;
            out_ << "      rule " << one.Rule + 1 << ": " << Utf8(term.Name) << " at "
                 << Number(one.Position) << ", " << Number(percent) << " %\n";
        }
    }

    /// What blocks several rules alike is told once.
    void WriteBlockers(const OutputState& output) {
        if (output.Cause != Cause::NoRuleFires) {
            return;
        }
        std::vector<std::pair<Text, std::vector<std::size_t>>> causes;
        for (const Explain::Blocker& blocker : BlockersOf(system_, evaluation_, output)) {
            Text sentence = BlockerSentence(system_, evaluation_, blocker);
            auto cause = std::ranges::find(causes, sentence, &decltype(causes)::value_type::first);
            if (cause == causes.end()) {
                cause =
                    causes.emplace(causes.end(), std::move(sentence), std::vector<std::size_t>());
            }
            cause->second.push_back(blocker.Rule);
        }
        for (std::size_t i = 0; i < causes.size() && i < MostCauses; ++i) {
            const auto& [sentence, rules] = causes[i];
            out_ << "      rule " << rules.front() + 1;
            if (rules.size() > 1) {
                out_ << " and " << rules.size() - 1 << " more";
            }
            out_ << ": " << Utf8(sentence) << '\n';
        }
        if (causes.size() > MostCauses) {
            out_ << "      and other causes of " << causes.size() - MostCauses << " kinds\n";
        }
    }

    const FuzzySystem& system_;
    const Evaluation& evaluation_;
    std::ostream& out_;
};

} // namespace

void WriteAccount(std::ostream& out, const FuzzySystem& system, const Evaluation& evaluation) {
    Account(system, evaluation, out).Write();
}

} // namespace Quorvane::Qfis
