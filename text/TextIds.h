// SPDX-License-Identifier: MIT
// The texts by their number in the text table.
#pragma once

#include <cstdint>

namespace Quorvane::TextIds {

/// Not assigned in the table: the empty text.
inline constexpr std::int32_t Nothing = -1;

inline constexpr std::int32_t DegreeOfMembership = 9;
inline constexpr std::int32_t LinguisticVariable = 12;
inline constexpr std::int32_t RuleBase = 14;
inline constexpr std::int32_t Weight = 15;
inline constexpr std::int32_t Input = 16;
inline constexpr std::int32_t Number = 17;
inline constexpr std::int32_t If = 18;
inline constexpr std::int32_t And = 19;
inline constexpr std::int32_t Antecedent = 22;
inline constexpr std::int32_t Then = 25;
inline constexpr std::int32_t Consequent = 27;
inline constexpr std::int32_t Output = 32;
inline constexpr std::int32_t Value = 33;
inline constexpr std::int32_t Is = 34;
/// The source of the errors of the engine.
inline constexpr std::int32_t Controller = 35;
/// The source of the errors of the editors, and the default caption.
inline constexpr std::int32_t InferenceSystem = 36;
inline constexpr std::int32_t HelpFile = 37;
inline constexpr std::int32_t About = 38;
inline constexpr std::int32_t Add = 52;
inline constexpr std::int32_t Modify = 53;
inline constexpr std::int32_t Delete = 54;
inline constexpr std::int32_t AddVariable = 55;
inline constexpr std::int32_t ModifyVariable = 56;
inline constexpr std::int32_t DeleteVariable = 57;
inline constexpr std::int32_t AddTerm = 58;
inline constexpr std::int32_t ModifyTerm = 59;
inline constexpr std::int32_t DeleteTerm = 60;
inline constexpr std::int32_t ModifyValue = 61;
inline constexpr std::int32_t RuleEditor = 62;
inline constexpr std::int32_t AddRule = 63;
inline constexpr std::int32_t DeleteRule = 65;
inline constexpr std::int32_t Close = 66;
inline constexpr std::int32_t RuleBaseWillBeEmptied = 69;
inline constexpr std::int32_t DuplicateIdentifier = 70;
inline constexpr std::int32_t ForbiddenCharacter = 71;
inline constexpr std::int32_t NotANumber = 72;
inline constexpr std::int32_t NumberTooSmall = 73;
inline constexpr std::int32_t NumberTooLarge = 74;
inline constexpr std::int32_t IdentifierTooLong = 75;
inline constexpr std::int32_t LeadingDigit = 76;
inline constexpr std::int32_t EqualBounds = 77;
inline constexpr std::int32_t RuleBaseEmpty = 78;
inline constexpr std::int32_t InvalidInputSignal = 79;
inline constexpr std::int32_t InvalidInputVariable = 80;
inline constexpr std::int32_t InvalidOutputVariable = 81;
inline constexpr std::int32_t InvalidRule = 82;
inline constexpr std::int32_t InvalidInference = 83;
inline constexpr std::int32_t InvalidEvaluation = 84;

} // namespace Quorvane::TextIds
