// SPDX-License-Identifier: MIT
// The checks on identifiers, numbers and bounds.
#include "editor/checks/Checks.h"

#include <algorithm>

#include "shared/NumberText.h"
#include "shared/StringKeyedDictionary.h"

namespace Quorvane::DesignTime {
namespace {

[[noreturn]] void Refuse(std::int32_t textId, TextView limit = {}) {
    throw FisError(ObjectErrorBase + static_cast<std::uint32_t>(textId), {},
                   Main::GetText(textId, limit));
}

bool IsDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

/// Letters, digits and "_" of ASCII. No letter of another script is among them, whatever a code
/// page may take it for.
bool IsIdentifierCharacter(char16_t character) {
    return IsDigit(character) || (character >= u'A' && character <= u'Z') ||
           (character >= u'a' && character <= u'z') || character == u'_';
}

double RequireNumber(TextView text) {
    try {
        return ParseUserNumber(text);
    } catch (const FisError&) {
        Refuse(TextIds::NotANumber);
    }
}

} // namespace

void CheckIdentifier(TextView oldName, TextView newName, bool isTaken) {
    if (KeyEqual{KeyComparison::IgnoreCase}(oldName, newName)) {
        return;
    }
    if (isTaken) {
        Refuse(TextIds::DuplicateIdentifier);
    }
    if (newName.size() > LongestIdentifier) {
        Refuse(TextIds::IdentifierTooLong, NumberText(LongestIdentifier));
    }
    if (!newName.empty() && IsDigit(newName.front())) {
        Refuse(TextIds::LeadingDigit);
    }
    if (!std::ranges::all_of(newName, IsIdentifierCharacter)) {
        Refuse(TextIds::ForbiddenCharacter);
    }
}

void CheckNumber(TextView text, std::optional<double> lower, std::optional<double> upper) {
    const double number = RequireNumber(text);
    if (lower && *lower > number) {
        Refuse(TextIds::NumberTooSmall, UserNumberText(*lower));
    }
    if (upper && *upper < number) {
        Refuse(TextIds::NumberTooLarge, UserNumberText(*upper));
    }
}

void CheckBoundsDiffer(TextView lower, TextView upper) {
    if (ParseUserNumber(lower) == ParseUserNumber(upper)) {
        Refuse(TextIds::EqualBounds);
    }
}

bool IsRefusal(const FisError& error) {
    return error.Number >= ObjectErrorBase + TextIds::DuplicateIdentifier &&
           error.Number <= ObjectErrorBase + TextIds::EqualBounds;
}

} // namespace Quorvane::DesignTime
