// SPDX-License-Identifier: MIT
// Pieces of C: numbers, identifiers and comments.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "code/CompiledSystem.h"
#include "shared/Text.h"

namespace Quorvane::Code {

/// The shortest constant of type double that reads back to the same bits.
std::string NumberConstant(double value);

/// A name as an identifier: every character but letters, digits and "_" becomes "_".
std::string Identifier(TextView name);

/// Identifiers of one case for names that differ without regard to case: those that have become
/// the same get numbers.
std::vector<std::string> UniqueIdentifiers(const std::vector<Text>& names);

/// Throws CodeError for a text that cannot be the name of a function: it has to be an identifier
/// that begins with a letter, and no word of C or C++.
void RequireFunctionName(std::string_view name);

std::string UpperCase(std::string_view ascii);

/// A name within a comment: what could end it, or is not ASCII, becomes "_".
std::string InComment(TextView name);

/// The first lines of a file: what it is and where it is from.
std::string Banner(std::string_view file, std::string_view what, std::string_view checksum);

/// The check that a compiler computes with plain doubles, and the pragmas that make it do so.
std::string ArithmeticGuard(std::string_view upperName);

/// The header of the function that computes the outputs; "details" go into its comment.
std::string MakeHeader(const CompiledSystem& system, std::string_view name,
                       std::string_view checksum, std::string_view details);

/// A table of unsigned numbers that takes the least room: "unsigned char", "short" or "long".
std::string_view IndexType(std::size_t largest);

} // namespace Quorvane::Code
