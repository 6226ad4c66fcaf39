// SPDX-License-Identifier: MIT
// Between a fuzzy system and the three definition texts, plain or stored.
#pragma once

#include <cstddef>
#include <exception>

#include "shared/TextServices.h"
#include "system/FuzzySystem.h"

namespace Quorvane::System {

/// The three texts that carry a system; model/ParseDefinition.h has their grammar.
struct DefinitionTexts {
    Text Inputs;
    Text Outputs;
    Text Rules;

    bool operator==(const DefinitionTexts&) const = default;
};

enum class DefinitionPart { Inputs, Outputs, Rules };

/// Why texts are no system, and where.
class DefinitionError : public std::exception {
  public:
    DefinitionError(DefinitionPart part, std::size_t column, Text message)
        : Part(part), Column(column), Message(std::move(message)) {}

    const char* what() const noexcept override { return "no fuzzy system"; }

    DefinitionPart Part;
    /// The character of the plain text, counted from 1; of the stored text where that is not one.
    std::size_t Column;
    Text Message;
};

/// Reads plain texts as the control does. Throws DefinitionError where the control would refuse
/// them, and for a rule that names a variable or a term that is not there even where the control
/// finds that out only in a cycle, or, of an output in which the rule chooses no term, never.
FuzzySystem FromPlainTexts(const DefinitionTexts& plain);

/// The same from stored texts, which the code page of the services has.
FuzzySystem FromStoredTexts(const DefinitionTexts& stored,
                            const TextServices& services = NeutralServices::Instance);

/// Writes plain texts from which the same system is read again, to the bit. They are those that the
/// control would write, but where these would lose something: a number of more than 15 digits has
/// 17, and the weight of a rule that repeats another has zeros appended, as no two rules may have
/// the same text. No name may hold a separator (IsPlainName).
DefinitionTexts PlainTexts(const FuzzySystem& system);

/// The same in their stored form. Characters beyond the code page become "?".
DefinitionTexts StoredTexts(const FuzzySystem& system,
                            const TextServices& services = NeutralServices::Instance);

/// Whether definition texts can carry a name: it has none of their separators | / ; , : > <
bool IsPlainName(TextView name);

} // namespace Quorvane::System
