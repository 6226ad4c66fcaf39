// SPDX-License-Identifier: MIT
// The checksum SHA-256.
#pragma once

#include <string>
#include <string_view>

namespace Quorvane {

/// The SHA-256 of some bytes, as 64 lower-case hexadecimal digits.
std::string Sha256(std::string_view bytes);

} // namespace Quorvane
