// SPDX-License-Identifier: MIT
// `imgIO`: the icons of the trees as an image list.
#pragma once

#include <windows.h>

#include "shared/Text.h"
#include "win/Handle.h"

namespace Quorvane::Editor {

/// The icons of the trees, with so many pixels to a side. Throws std::system_error.
Win::Handle<Win::ImageListKind> MakeTreeImages(int side);

/// The index of an icon in that list, by its key; one past the last image for an unknown key, which
/// a tree shows without an icon.
int TreeImageIndex(TextView key);

} // namespace Quorvane::Editor
