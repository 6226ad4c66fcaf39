// SPDX-License-Identifier: MIT
// Options: the command line of the host program.
#pragma once

#include <windows.h>

#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>
#include <vector>

#include "shared/Text.h"

namespace Quorvane::Host {

/// What the command line asks for. Paths are as given.
struct Options {
    std::filesystem::path Form;
    std::filesystem::path Output = u".";
    std::optional<std::filesystem::path> Dll;
    std::optional<std::filesystem::path> Save;
    std::optional<LCID> Locale;
    std::map<Text, Text> Values;
    bool Design = false;
    bool New = false;
    bool Help = false;
};

/// A command line that cannot be followed.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The arguments behind the program's name, of the `count` that a program is given.
std::vector<Text> ArgumentTexts(int count, wchar_t** arguments);

/// Reads the arguments behind the program's name. Throws UsageError.
Options ParseOptions(const std::vector<Text>& arguments);

/// The help text.
TextView UsageText();

} // namespace Quorvane::Host
