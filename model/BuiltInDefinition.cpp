// SPDX-License-Identifier: MIT
// The fuzzy system of a newly created control.
#include "model/BuiltInDefinition.h"

#include <array>

namespace Quorvane::Main {
namespace {

/// Encodes printable ASCII at compile time, so that the source reads as plain text and the binary
/// holds the stored form.
template <std::size_t Size>
consteval auto Stored(const char16_t (&plain)[Size]) {
    constexpr const char16_t* Digits = u"0123456789ABCDEF";
    std::array<char16_t, 2 * (Size - 1)> stored{};
    for (std::size_t i = 0; i + 1 < Size; ++i) {
        stored[2 * i] = Digits[plain[i] & 0xF];
        stored[2 * i + 1] = Digits[plain[i] >> 4];
    }
    return stored;
}

constexpr auto Inputs = Stored(u"Error/1/-1/Neg,-1,-1,-0.5,0;Zero,-0.5,0,0,0.5;Pos,0,0.5,1,1|"
                               u"Rate/1/-1/Neg,-1,-1,-0.5,0;Zero,-0.5,0,0,0.5;Pos,0,0.5,1,1");

constexpr auto Outputs = Stored(u"Action/1/-1/Down,-1;Less,-0.5;Hold,0;More,0.5;Up,1");

constexpr auto Rules =
    Stored(u"Error>Neg;Rate>Neg/Action<Down:1|Error>Neg;Rate>Zero/Action<Less:1|"
           u"Error>Neg;Rate>Pos/Action<Hold:1|Error>Zero;Rate>Neg/Action<Less:1|"
           u"Error>Zero;Rate>Zero/Action<Hold:1|Error>Zero;Rate>Pos/Action<More:1|"
           u"Error>Pos;Rate>Neg/Action<Hold:1|Error>Pos;Rate>Zero/Action<More:1|"
           u"Error>Pos;Rate>Pos/Action<Up:1");

} // namespace

TextView BuiltInInputs() {
    return {Inputs.data(), Inputs.size()};
}

TextView BuiltInOutputs() {
    return {Outputs.data(), Outputs.size()};
}

TextView BuiltInRules() {
    return {Rules.data(), Rules.size()};
}

} // namespace Quorvane::Main
