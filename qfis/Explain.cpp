// SPDX-License-Identifier: MIT
// qfis explain: why each output is what it is.
#include <algorithm>

#include "host/formfile/Utf8.h"
#include "qfis/Accounts.h"
#include "qfis/Commands.h"
#include "qfis/Files.h"
#include "shared/StringKeyedDictionary.h"

namespace Quorvane::Qfis {
namespace {

using System::FuzzySystem;

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

} // namespace

int Explain(const ExplainOptions& options, const Console& console) {
    const FuzzySystem system = LoadSystem(options.File, options.Control);
    const Explain::Evaluation evaluation =
        Explain::Evaluate(system, ReadingOf(system, options.Inputs));
    if (options.Json) {
        WriteAccountAsJson(console.Out, system, evaluation);
    } else {
        WriteAccount(console.Out, system, evaluation);
    }
    return evaluation.Fault ? Findings : Fine;
}

} // namespace Quorvane::Qfis
