// SPDX-License-Identifier: MIT
// An image list whose images have names.
#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "shared/Text.h"
#include "win/Handle.h"

namespace Quorvane::Win {

/// Images of one size, found by key.
class ImageList {
  public:
    /// No images, and no place for any.
    ImageList() noexcept = default;

    /// Square images with so many pixels to a side. Throws std::system_error.
    explicit ImageList(int side);

    /// Adds the icon resource of a module in the size of this list. Throws std::system_error.
    void Add(TextView key, HMODULE module, WORD resource);

    /// A copy of an image; none where there is no such key.
    Icon Get(TextView key) const;

    HIMAGELIST Handle() const noexcept { return list_.Get(); }
    int Side() const noexcept { return side_; }

  private:
    Win::Handle<ImageListKind> list_;
    int side_ = 0;
    std::vector<Text> keys_;
};

/// An icon resource in the given size, scaled from the best one there is. Throws std::system_error.
Icon LoadIconResource(HMODULE module, WORD resource, int side);

} // namespace Quorvane::Win
