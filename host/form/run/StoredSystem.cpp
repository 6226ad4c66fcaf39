// SPDX-License-Identifier: MIT
// StoredSystem: what a form can know of a control's fuzzy system from its stored text properties.
#include "host/form/run/StoredSystem.h"

#include <charconv>
#include <optional>

namespace Quorvane::Host {

namespace {

std::optional<unsigned> HexDigit(wchar_t digit) {
    constexpr std::wstring_view Digits = L"0123456789ABCDEF";
    const auto value = Digits.find(static_cast<wchar_t>(towupper(digit)));
    return value == std::wstring_view::npos ? std::nullopt
                                            : std::optional(static_cast<unsigned>(value));
}

std::string Decode(std::wstring_view stored) {
    std::string plain;
    for (std::size_t i = 0; i + 1 < stored.size(); i += 2) {
        const auto low = HexDigit(stored[i]);
        const auto high = HexDigit(stored[i + 1]);
        if (!low || !high) {
            break;
        }
        plain.push_back(static_cast<char>(*high << 4 | *low));
    }
    return plain;
}

/// Takes the part before the separator off the text.
std::string_view Take(std::string_view& text, char separator) {
    const auto end = text.find(separator);
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return part;
}

std::optional<double> ReadNumber(std::string_view text) {
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return whole ? std::optional(number) : std::nullopt;
}

} // namespace

std::vector<StoredVariable> ReadStoredVariables(std::wstring_view stored) {
    std::vector<StoredVariable> variables;
    const std::string plain = Decode(stored);
    std::string_view rest = plain;
    while (!rest.empty()) {
        std::string_view fields = Take(rest, '|');
        const std::string_view name = Take(fields, '/');
        const auto upper = ReadNumber(Take(fields, '/'));
        const auto lower = ReadNumber(Take(fields, '/'));
        if (upper && lower) {
            variables.push_back({{name.begin(), name.end()}, *lower, *upper});
        }
    }
    return variables;
}

} // namespace Quorvane::Host
