// SPDX-License-Identifier: MIT
// qfis check: what is wrong with a system, or worth knowing of it.
#include <algorithm>

#include "check/CheckSystem.h"
#include "check/Describe.h"
#include "explain/Sentences.h"
#include "qfis/Commands.h"
#include "qfis/Files.h"
#include "qfis/Json.h"

namespace Quorvane::Qfis {
namespace {

using Check::CheckResult;
using Check::Finding;
using Check::Severity;
using System::FuzzySystem;

std::size_t CountOf(const CheckResult& result, Severity level) {
    return static_cast<std::size_t>(std::ranges::count(result.Findings, level, &Finding::Level));
}

/// "2 warnings"
std::string Counted(std::size_t count, std::string_view word) {
    return std::to_string(count) + ' ' + std::string(word) + (count == 1 ? "" : "s");
}

void WriteFinding(std::ostream& out, const FuzzySystem& system, const Finding& finding) {
    out << Check::NameOf(finding.Level) << ": " << Host::EncodeUtf8(Describe(system, finding))
        << '\n';
    for (const std::uint32_t rule : finding.Rules) {
        out << "    rule " << rule + 1 << ": "
            << Host::EncodeUtf8(Explain::RuleSentence(system, system.Rules[rule])) << '\n';
    }
    if (const Text example = DescribeExample(system, finding); !example.empty()) {
        out << "    for example at " << Host::EncodeUtf8(example) << '\n';
    }
}

void WriteResult(std::ostream& out, const FuzzySystem& system, const CheckResult& result) {
    for (const Finding& finding : result.Findings) {
        WriteFinding(out, system, finding);
    }
    for (const auto& [kind, count] : result.Omitted) {
        out << "and at least " << count << " more of the kind " << Check::NameOf(kind) << '\n';
    }
    out << Counted(CountOf(result, Severity::Error), "error") << ", "
        << Counted(CountOf(result, Severity::Warning), "warning") << ", "
        << Counted(CountOf(result, Severity::Note), "note") << '\n';
}

Json FindingJson(const FuzzySystem& system, const Finding& finding) {
    Json json = {{"kind", Check::NameOf(finding.Kind)},
                 {"severity", Check::NameOf(finding.Level)},
                 {"message", ToJson(Describe(system, finding))}};
    if (finding.Input) {
        json["input"] = ToJson(system.Inputs[*finding.Input].Name);
    }
    if (finding.Output) {
        json["output"] = ToJson(system.Outputs[*finding.Output].Name);
    }
    if (finding.Term) {
        json["term"] =
            ToJson(finding.Input ? system.Inputs[*finding.Input].Terms[*finding.Term].Name
                                 : system.Outputs[*finding.Output].Terms[*finding.Term].Name);
    }
    for (const std::uint32_t rule : finding.Rules) {
        json["rules"].push_back(rule + 1);
    }
    for (const std::uint32_t output : finding.Outputs) {
        json["outputs"].push_back(ToJson(system.Outputs[output].Name));
    }
    for (const Check::Range& range : finding.Region) {
        json["region"].push_back({range.First, range.Last});
    }
    for (const double value : finding.Example) {
        json["example"].push_back(value);
    }
    json["count"] = finding.Count;
    json["share"] = finding.Share;
    json["figure"] = finding.Figure;
    json["exact"] = finding.IsExact;
    return json;
}

Json ResultJson(const FuzzySystem& system, const CheckResult& result) {
    Json json = {{"findings", Json::array()},
                 {"omitted", Json::object()},
                 {"errors", CountOf(result, Severity::Error)},
                 {"warnings", CountOf(result, Severity::Warning)},
                 {"notes", CountOf(result, Severity::Note)}};
    for (const Finding& finding : result.Findings) {
        json["findings"].push_back(FindingJson(system, finding));
    }
    for (const auto& [kind, count] : result.Omitted) {
        json["omitted"][std::string(Check::NameOf(kind))] = count;
    }
    return json;
}

} // namespace

int Check(const CheckOptions& options, const Console& console) {
    const FuzzySystem system = LoadSystem(options.File, options.Control);
    const CheckResult result = Check::CheckSystem(system);
    if (options.Json) {
        console.Out << ResultJson(system, result).dump(2) << '\n';
    } else {
        WriteResult(console.Out, system, result);
    }
    // Notes are no faults.
    return result.Highest().value_or(Severity::Note) == Severity::Note ? Fine : Findings;
}

} // namespace Quorvane::Qfis
