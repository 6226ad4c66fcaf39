// SPDX-License-Identifier: MIT
// The files that commands read and write.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "formats/SystemFile.h"

namespace Quorvane::Qfis {

/// A file that cannot be used, or what a command was asked for, with exit code BadInput.
class InputError : public std::runtime_error {
  public:
    /// An error of no file has an empty name.
    InputError(std::string file, Formats::Position where, const std::string& message)
        : std::runtime_error(message), File(std::move(file)), Where(where) {}

    explicit InputError(const std::string& message) : InputError({}, {}, message) {}

    /// "FILE:LINE:COLUMN: message", as much of it as there is.
    std::string Line() const;

    std::string File;
    Formats::Position Where;
};

/// A path given in UTF-8.
std::filesystem::path PathOf(const std::string& utf8);

/// The bytes of a file, at most 256 MB. Throws InputError.
std::string ReadFile(const std::string& path);

/// Replaces a file, by way of a new one beside it: a failure leaves the old one. Throws InputError.
void WriteFile(const std::string& path, const std::string& content);

/// The system in a file of any format. The name of a control is for forms; it may be empty. Throws
/// InputError.
System::FuzzySystem LoadSystem(const std::string& path, const std::string& control);

} // namespace Quorvane::Qfis
