// SPDX-License-Identifier: MIT
// From definition texts to a fuzzy system.
#include "model/TransformText.h"
#include "shared/FisError.h"
#include "shared/NumberText.h"
#include "system/TextReading.h"

namespace Quorvane::System {
namespace {

Text Decoded(DefinitionPart part, TextView stored, const TextServices& services) {
    const auto wrong = stored.find_first_not_of(u"0123456789ABCDEFabcdef");
    if (wrong != TextView::npos) {
        PartReader(part, stored)
            .Fail(stored.substr(wrong), u"expected a hexadecimal digit of a stored text");
    }
    return Main::TransformText(stored, false, services);
}

} // namespace

void PartReader::Fail(TextView at, Text message) const {
    const auto offset = static_cast<std::size_t>(at.data() - Whole.data());
    throw DefinitionError(part_, offset + 1, std::move(message));
}

void PartReader::FailBehind(TextView piece, Text message) const {
    Fail(piece.substr(piece.size()), std::move(message));
}

TextView PartReader::Piece(const std::vector<TextView>& pieces, std::size_t index, TextView split,
                           TextView expected) const {
    if (index >= pieces.size()) {
        FailBehind(split, Text(u"expected ").append(expected));
    }
    return pieces[index];
}

double PartReader::Number(TextView text) const {
    try {
        return ParseNumber(text);
    } catch (const FisError& error) {
        const bool isTooLarge = error.Number == static_cast<std::uint32_t>(RuntimeError::Overflow);
        Fail(text, isTooLarge ? u"the number is too large" : u"expected a number");
    }
}

FuzzySystem FromPlainTexts(const DefinitionTexts& plain) {
    FuzzySystem system;
    system.Inputs = ReadInputs(plain.Inputs);
    system.Outputs = ReadOutputs(plain.Outputs);
    system.Rules = ReadRules(plain.Rules, system);
    return system;
}

FuzzySystem FromStoredTexts(const DefinitionTexts& stored, const TextServices& services) {
    return FromPlainTexts({Decoded(DefinitionPart::Inputs, stored.Inputs, services),
                           Decoded(DefinitionPart::Outputs, stored.Outputs, services),
                           Decoded(DefinitionPart::Rules, stored.Rules, services)});
}

} // namespace Quorvane::System
