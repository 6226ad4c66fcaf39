// SPDX-License-Identifier: MIT
// The codec between plain definition text and the stored form that hosts persist.
#pragma once

#include "shared/TextServices.h"

namespace Quorvane::Main {

/// Encodes plain text (true) or decodes stored text (false).
///
/// Encoding writes each character's code in the ANSI code page in upper-case hexadecimal without
/// leading zeros, lowest digit first: "A/1" -> "14F213". Decoding takes two digits of either letter
/// case at a time, lowest first; an odd last digit is a code by itself. It raises TypeMismatch for
/// anything but a hexadecimal digit.
///
/// Text of printable ASCII decodes back to itself. Characters that do not take exactly two digits
/// (codes below 0x10, double-byte characters) do not.
Text TransformText(TextView text, bool encode);

/// The same with a code page other than that of the process.
Text TransformText(TextView text, bool encode, const TextServices& services);

} // namespace Quorvane::Main
