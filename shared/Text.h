// SPDX-License-Identifier: MIT
// The text types of the system and the one way it splits texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quorvane {

/// A UTF-16 text, the form in which hosts and windows exchange texts.
using Text = std::u16string;
using TextView = std::u16string_view;

/// The pieces of a text between its separators. An empty text has no pieces; any other text has
/// one piece more than it has separators. The pieces view the given text.
std::vector<TextView> Split(TextView text, char16_t separator);

/// The same into a vector that is reused, for loops over many texts.
void Split(TextView text, char16_t separator, std::vector<TextView>& pieces);

/// Widens printable ASCII.
Text Widen(std::string_view ascii);

/// FoldCase of a character that is no ASCII.
char16_t FoldCaseBeyondAscii(char16_t character) noexcept;

/// The upper-case form of a character, for comparing keys without regard to case: the letters of
/// ASCII, Latin-1, Greek, Cyrillic and the full-width forms; every other character is itself.
inline char16_t FoldCase(char16_t character) noexcept {
    constexpr char16_t AsciiEnd = 0x80;
    if (character < AsciiEnd) {
        const bool isLower = character >= u'a' && character <= u'z';
        return static_cast<char16_t>(character - (isLower ? 0x20 : 0));
    }
    return FoldCaseBeyondAscii(character);
}

} // namespace Quorvane
