// SPDX-License-Identifier: MIT
// qfis convert: a system in a file of another format.
#include <algorithm>

#include "formats/FormSystem.h"
#include "qfis/Commands.h"
#include "qfis/Files.h"
#include "qfis/Json.h"

namespace Quorvane::Qfis {
namespace {

using Formats::Format;

Format OutputFormat(const ConvertOptions& options) {
    if (!options.Format.empty()) {
        // The option takes no other names.
        return *Formats::FormatNamed(options.Format);
    }
    const auto extension = PathOf(options.Output).extension().u8string();
    const auto format = Formats::FormatOfExtension(std::string(extension.begin(), extension.end()));
    if (!format) {
        throw InputError(options.Output, {},
                         "this ending tells no format; choose one with --format");
    }
    return *format;
}

/// A form's name, an identifier, from that of its file.
std::string FormName(const std::string& path) {
    const auto stem = PathOf(path).stem().u8string();
    std::string name(stem.begin(), stem.end());
    std::ranges::replace_if(
        name,
        [](unsigned char character) {
            return !(character < 0x80 && (std::isalnum(character) != 0 || character == '_'));
        },
        '_');
    const bool startsWithDigit = !name.empty() && std::isdigit(static_cast<unsigned char>(name[0]));
    return name.empty() || startsWithDigit ? "Form" + name : name;
}

bool Exists(const std::string& path) {
    std::error_code error;
    return std::filesystem::exists(PathOf(path), error);
}

/// A form that is there keeps all but the system of its control.
std::string Content(const System::FuzzySystem& system, Format format, const std::string& path) {
    if (format == Format::Form && Exists(path)) {
        return Formats::ReplaceFormSystem(ReadFile(path), system);
    }
    return Formats::WriteSystem(system, format, FormName(path));
}

} // namespace

int Convert(const ConvertOptions& options, const Console& console) {
    const System::FuzzySystem system = LoadSystem(options.File, options.Control);
    const Format format = OutputFormat(options);
    try {
        WriteFile(options.Output, Content(system, format, options.Output));
    } catch (const Formats::FormatError& error) {
        throw InputError(options.Output, error.Where, error.what());
    }
    if (options.Json) {
        console.Out << Json{{"file", options.Output}, {"format", Formats::NameOf(format)}}.dump(2)
                    << '\n';
    }
    return Fine;
}

} // namespace Quorvane::Qfis
