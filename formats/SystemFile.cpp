// SPDX-License-Identifier: MIT
// Any file that holds a fuzzy system.
#include "formats/SystemFile.h"

#include <algorithm>
#include <array>

#include "formats/DefinitionFile.h"
#include "formats/FormSystem.h"
#include "formats/TextsFile.h"
#include "shared/Text.h"

namespace Quorvane::Formats {
namespace {

struct Entry {
    Format Kind;
    std::string_view Name;
    std::string_view Extension;
};

constexpr std::array Formats = {
    Entry{Format::Definition, "fuzzy", DefinitionFileExtension},
    Entry{Format::Form, "form", ".form"},
    Entry{Format::PlainTexts, "texts", ".txt"},
    Entry{Format::StoredTexts, "stored", {}},
};

bool SameWord(std::string_view left, std::string_view right) {
    const auto fold = [](char character) {
        return FoldCase(static_cast<unsigned char>(character));
    };
    return std::ranges::equal(left, right, {}, fold, fold);
}

} // namespace

std::string_view NameOf(Format format) {
    return Formats[static_cast<std::size_t>(format)].Name;
}

std::optional<Format> FormatNamed(std::string_view name) {
    const auto* const found = std::ranges::find(Formats, name, &Entry::Name);
    return found == Formats.end() ? std::nullopt : std::optional(found->Kind);
}

std::optional<Format> FormatOfExtension(std::string_view extension) {
    const auto* const found = std::ranges::find_if(Formats, [&](const Entry& entry) {
        return !extension.empty() && SameWord(entry.Extension, extension);
    });
    return found == Formats.end() ? std::nullopt : std::optional(found->Kind);
}

Format FormatOf(std::string_view utf8, std::string_view extension) {
    if (IsDefinitionFile(utf8)) {
        return Format::Definition;
    }
    const auto expected = FormatOfExtension(extension);
    if (expected && *expected != Format::PlainTexts) {
        return *expected;
    }
    if (HasStoredTexts(utf8)) {
        return Format::StoredTexts;
    }
    // A form has a "Version" before anything else but comments.
    const auto version = utf8.find("Version ");
    const bool isForm = version != std::string_view::npos &&
                        (version == 0 || utf8[version - 1] == '\n' || utf8[version - 1] == '\xBF');
    return isForm && !expected ? Format::Form : Format::PlainTexts;
}

System::FuzzySystem ReadSystem(std::string_view utf8, Format format, std::string_view control) {
    switch (format) {
    case Format::Definition:
        return ReadDefinitionFile(utf8);
    case Format::Form:
        return ReadFormSystem(utf8, control);
    default:
        return ReadTextsFile(utf8);
    }
}

std::string WriteSystem(const System::FuzzySystem& system, Format format, std::string_view name) {
    switch (format) {
    case Format::Definition:
        return WriteDefinitionFile(system);
    case Format::Form:
        return WriteFormSystem(system, name);
    case Format::PlainTexts:
        return WritePlainTexts(system);
    default:
        return WriteStoredTexts(system);
    }
}

} // namespace Quorvane::Formats
