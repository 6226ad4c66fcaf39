// SPDX-License-Identifier: MIT
// An image list whose images have names.
#include "win/ImageList.h"

#include <algorithm>

#include "win/Error.h"

namespace Quorvane::Win {

Icon LoadIconResource(HMODULE module, WORD resource, int side) {
    Icon icon(static_cast<HICON>(
        ::LoadImageW(module, MAKEINTRESOURCEW(resource), IMAGE_ICON, side, side, LR_DEFAULTCOLOR)));
    if (!icon) {
        ThrowLastError();
    }
    return icon;
}

ImageList::ImageList(int side)
    : list_(::ImageList_Create(side, side, ILC_COLOR32 | ILC_MASK, 1, 1)), side_(side) {
    if (!list_) {
        ThrowLastError();
    }
}

void ImageList::Add(TextView key, HMODULE module, WORD resource) {
    const Icon icon = LoadIconResource(module, resource, side_);
    keys_.emplace_back(key);
    if (::ImageList_AddIcon(list_.Get(), icon.Get()) < 0) {
        keys_.pop_back();
        ThrowLastError();
    }
}

Icon ImageList::Get(TextView key) const {
    const auto found = std::ranges::find(keys_, key);
    if (found == keys_.end()) {
        return {};
    }
    const auto index = static_cast<int>(found - keys_.begin());
    return Icon(::ImageList_GetIcon(list_.Get(), index, ILD_TRANSPARENT));
}

} // namespace Quorvane::Win
