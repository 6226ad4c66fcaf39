// SPDX-License-Identifier: MIT
// Pieces of C: numbers, identifiers and comments.
#include "code/CText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <set>

namespace Quorvane::Code {
namespace {

bool IsLetter(char16_t character) {
    return (character >= u'A' && character <= u'Z') || (character >= u'a' && character <= u'z');
}

bool IsDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

/// The words that C and C++ keep for themselves, and the names within the generated sources.
constexpr std::string_view Words[] = {
    "alignas",   "alignof",  "and",      "and_eq",    "asm",       "auto",     "bitand",
    "bitor",     "bool",     "break",    "case",      "catch",     "char",     "class",
    "compl",     "concept",  "const",    "continue",  "decltype",  "default",  "delete",
    "do",        "double",   "else",     "enum",      "explicit",  "export",   "extern",
    "false",     "float",    "for",      "friend",    "goto",      "if",       "inline",
    "int",       "long",     "main",     "mutable",   "namespace", "new",      "noexcept",
    "not",       "not_eq",   "nullptr",  "operator",  "or",        "or_eq",    "private",
    "protected", "public",   "register", "requires",  "restrict",  "return",   "short",
    "signed",    "sizeof",   "static",   "struct",    "switch",    "template", "this",
    "throw",     "true",     "try",      "typedef",   "typeid",    "typename", "typeof",
    "union",     "unsigned", "using",    "virtual",   "void",      "volatile", "while",
    "xor",       "xor_eq",   "defaults", "degree_in", "is_finite", "is_set",   "lower",
    "positions", "rules",    "table",    "terms",     "upper"};

} // namespace

std::string NumberConstant(double value) {
    std::array<char, 32> characters{};
    char* const end =
        std::to_chars(characters.data(), characters.data() + characters.size(), value).ptr;
    std::string text(characters.data(), end);
    if (text.find_first_of(".e") == std::string::npos) {
        text += ".0";
    }
    return text;
}

std::string Identifier(TextView name) {
    std::string identifier;
    for (const char16_t character : name) {
        const bool isPlain = IsLetter(character) || IsDigit(character);
        identifier += isPlain ? static_cast<char>(character) : '_';
    }
    if (identifier.empty() || IsDigit(static_cast<char16_t>(identifier.front()))) {
        identifier.insert(0, 1, '_');
    }
    return identifier;
}

std::vector<std::string> UniqueIdentifiers(const std::vector<Text>& names) {
    std::vector<std::string> identifiers;
    std::set<std::string> taken;
    for (const Text& name : names) {
        const std::string plain = UpperCase(Identifier(name));
        std::string identifier = plain;
        for (int number = 2; !taken.insert(identifier).second; ++number) {
            identifier = plain + '_' + std::to_string(number);
        }
        identifiers.push_back(identifier);
    }
    return identifiers;
}

void RequireFunctionName(std::string_view name) {
    const auto isPart = [](char character) {
        const auto wide = static_cast<char16_t>(character);
        return IsLetter(wide) || IsDigit(wide) || character == '_';
    };
    if (name.empty() || !IsLetter(static_cast<char16_t>(name.front())) ||
        !std::ranges::all_of(name, isPart) || std::ranges::find(Words, name) != std::end(Words)) {
        throw CodeError('"' + std::string(name) + "\" is no name for a function of C");
    }
}

std::string UpperCase(std::string_view ascii) {
    std::string upper(ascii);
    for (char& character : upper) {
        character = static_cast<char>(FoldCase(static_cast<char16_t>(character)));
    }
    return upper;
}

std::string InComment(TextView name) {
    std::string text;
    for (const char16_t character : name) {
        const bool isPlain = character > u' ' && character < 0x7F && character != u'*' &&
                             character != u'/' && character != u'\\' && character != u'?';
        text += isPlain ? static_cast<char>(character) : '_';
    }
    return text;
}

std::string_view IndexType(std::size_t largest) {
    constexpr std::size_t LargestChar = 255;
    constexpr std::size_t LargestShort = 65535;
    return largest <= LargestChar    ? "unsigned char"
           : largest <= LargestShort ? "unsigned short"
                                     : "unsigned long";
}

} // namespace Quorvane::Code
