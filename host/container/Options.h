// SPDX-License-Identifier: MIT
// Options: the command line of the host program.
#pragma once

#include <windows.h>

#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Quorvane::Host {

/// What the command line asks for. Paths are as given.
struct Options {
    std::filesystem::path Form;
    std::filesystem::path Output = L".";
    std::optional<std::filesystem::path> Dll;
    std::optional<std::filesystem::path> Save;
    std::optional<LCID> Locale;
    std::map<std::wstring, std::wstring> Values;
    bool Design = false;
    bool New = false;
    bool Help = false;
};

/// A command line that cannot be followed.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Reads the arguments behind the program's name. Throws UsageError.
Options ParseOptions(const std::vector<std::wstring>& arguments);

/// The help text.
const wchar_t* UsageText();

} // namespace Quorvane::Host
