// SPDX-License-Identifier: MIT
// A part of the registry as plain data, for comparing before with after.
#pragma once

#include <windows.h>

#include <map>

#include "shared/Text.h"

namespace Quorvane {

/// Every key below the root as u"\\A\\B", with an empty text, and every value as u"\\A\\B@name".
using RegistrySnapshot = std::map<Text, Text>;

/// What is below a key, as many levels deep as asked for; nothing where there is no such key.
RegistrySnapshot TakeSnapshot(HKEY root, const Text& path, int levels = 32);

} // namespace Quorvane
