// SPDX-License-Identifier: MIT
// StoredSystem: what a form can know of a control's fuzzy system from its stored text properties.
#include "host/form/run/StoredSystem.h"

#include <optional>

#include "model/TransformText.h"
#include "shared/FisError.h"
#include "shared/NumberText.h"

namespace Quorvane::Host {
namespace {

/// The plain form of a stored text; empty for one that does not decode.
Text Decoded(TextView stored) {
    try {
        return Main::TransformText(stored, false);
    } catch (const FisError&) {
        return {};
    }
}

std::optional<double> ReadNumber(TextView text) {
    try {
        return ParseNumber(text);
    } catch (const FisError&) {
        return std::nullopt;
    }
}

} // namespace

std::vector<StoredVariable> ReadStoredVariables(TextView stored) {
    const Text plain = Decoded(stored);
    std::vector<StoredVariable> variables;
    for (const TextView variable : Split(plain, u'|')) {
        const std::vector<TextView> fields = Split(variable, u'/');
        const auto upper = fields.size() > 1 ? ReadNumber(fields[1]) : std::nullopt;
        const auto lower = fields.size() > 2 ? ReadNumber(fields[2]) : std::nullopt;
        if (upper && lower) {
            variables.push_back({Text(fields[0]), *lower, *upper});
        }
    }
    return variables;
}

} // namespace Quorvane::Host
