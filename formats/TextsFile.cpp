// SPDX-License-Identifier: MIT
// A file with the three definition texts, plain or stored.
#include "formats/TextsFile.h"

#include <algorithm>

#include "formats/StoredNames.h"
#include "formats/Utf8Text.h"
#include "host/formfile/Utf8.h"
#include "shared/Text.h"
#include "system/DefinitionTexts.h"

namespace Quorvane::Formats {
namespace {

constexpr std::size_t TextCount = 3;

/// The lines of a text, whatever ends them, without empty ones at the end.
std::vector<TextView> LinesOf(TextView text) {
    std::vector<TextView> lines = Split(text, u'\n');
    for (TextView& line : lines) {
        line.remove_suffix(line.ends_with(u'\r') ? 1 : 0);
    }
    while (!lines.empty() && lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

bool IsStored(const std::vector<TextView>& lines) {
    return std::ranges::all_of(lines, [](TextView line) {
        return line.find_first_not_of(u"0123456789ABCDEFabcdef") == TextView::npos;
    });
}

std::string Lines(const System::DefinitionTexts& texts) {
    return Host::EncodeUtf8(texts.Inputs + u'\n' + texts.Outputs + u'\n' + texts.Rules + u'\n');
}

} // namespace

bool HasStoredTexts(std::string_view utf8) {
    try {
        const Text text = Host::DecodeUtf8(utf8);
        return IsStored(LinesOf(text));
    } catch (const Host::Utf8Error&) {
        return false;
    }
}

System::FuzzySystem ReadTextsFile(std::string_view utf8) {
    const Text text = DecodedText(utf8);
    if (text.empty()) {
        throw FormatError({}, "the file is empty");
    }
    std::vector<TextView> lines = LinesOf(text);
    if (lines.size() > TextCount) {
        throw FormatError({TextCount + 1, 0}, "nothing may follow the texts of inputs, outputs and "
                                              "rules, a line each");
    }
    const bool isStored = IsStored(lines);
    lines.resize(TextCount);
    const System::DefinitionTexts texts{Text(lines[0]), Text(lines[1]), Text(lines[2])};
    try {
        return isStored ? System::FromStoredTexts(texts) : System::FromPlainTexts(texts);
    } catch (const System::DefinitionError& error) {
        throw FormatError({static_cast<std::size_t>(error.Part) + 1, error.Column},
                          Host::EncodeUtf8(error.Message));
    }
}

std::string WritePlainTexts(const System::FuzzySystem& system) {
    return Lines(System::PlainTexts(system));
}

std::string WriteStoredTexts(const System::FuzzySystem& system) {
    RequireStorableNames(system);
    return Lines(System::StoredTexts(system));
}

} // namespace Quorvane::Formats
