// SPDX-License-Identifier: MIT
// The icons of the trees, drawn in the size that the screen asks for.
#pragma once

#include <cstdint>
#include <vector>

#include "shared/Text.h"

namespace Quorvane::Editor {

/// The keys of `imgIO`, in the order of its images.
inline constexpr TextView TreeIconKeys[] = {u"Inputs", u"Outputs", u"Input", u"Output",
                                            u"UBound", u"LBound",  u"MF",    u"MF_P1",
                                            u"MF_P2",  u"MF_P3",   u"MF_P4", u"MF_P"};

/// An icon as side x side pixels, the top row first. They are 0xAARRGGBB with the colours as they
/// are, not multiplied by the opacity. An unknown key gives a transparent icon.
std::vector<std::uint32_t> DrawTreeIcon(TextView key, int side);

} // namespace Quorvane::Editor
