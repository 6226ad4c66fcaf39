// SPDX-License-Identifier: MIT
// `imgIO`: the icons of the trees as an image list.
#include "editor/windows/TreeImages.h"

#include <algorithm>
#include <iterator>

#include "editor/page/TreeIcons.h"
#include "win/Error.h"

namespace Quorvane::Editor {
namespace {

Win::Bitmap MakeBitmap(TextView key, int side) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = side;
    info.bmiHeader.biHeight = -side;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    Win::Bitmap bitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (!bitmap) {
        Win::ThrowLastError();
    }
    std::ranges::copy(DrawTreeIcon(key, side), static_cast<std::uint32_t*>(pixels));
    return bitmap;
}

} // namespace

Win::Handle<Win::ImageListKind> MakeTreeImages(int side) {
    Win::Handle<Win::ImageListKind> images(::ImageList_Create(
        side, side, ILC_COLOR32 | ILC_MASK, static_cast<int>(std::size(TreeIconKeys)), 0));
    if (!images) {
        Win::ThrowLastError();
    }
    // A list of 32 bits takes the opacity from bitmaps that come without a mask. It multiplies the
    // colours by it when it draws, so they must not be multiplied before.
    for (const TextView key : TreeIconKeys) {
        if (::ImageList_Add(images.Get(), MakeBitmap(key, side).Get(), nullptr) < 0) {
            Win::ThrowLastError();
        }
    }
    return images;
}

int TreeImageIndex(TextView key) {
    return static_cast<int>(std::ranges::find(TreeIconKeys, key) - std::begin(TreeIconKeys));
}

} // namespace Quorvane::Editor
