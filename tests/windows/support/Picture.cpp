// SPDX-License-Identifier: MIT
// A picture in memory.
#include "tests/windows/support/Picture.h"

#include <algorithm>
#include <map>

namespace Quorvane {

Picture::Picture(int width, int height)
    : width_(width), height_(height), context_(::CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    bitmap_ =
        Win::Bitmap(::CreateDIBSection(context_.Get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    ::SelectObject(Context(), bitmap_.Get());
    ::PatBlt(Context(), 0, 0, width, height, WHITENESS);
}

Picture Picture::OfWindow(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    Picture picture(place.right - place.left, place.bottom - place.top);
    const Win::WindowDc screen(nullptr);
    ::BitBlt(picture.Context(), 0, 0, picture.width_, picture.height_, screen.Get(), place.left,
             place.top, SRCCOPY);
    return picture;
}

int Picture::Ink(const RECT& area) const {
    std::map<COLORREF, int> counts;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            ++counts[At(x, y)];
        }
    }
    int all = 0;
    int most = 0;
    for (const auto& [color, count] : counts) {
        all += count;
        most = std::max(most, count);
    }
    return all - most;
}

std::set<COLORREF> Picture::Colours(const RECT& area) const {
    std::set<COLORREF> colours;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            colours.insert(At(x, y));
        }
    }
    return colours;
}

void Picture::Play(const STGMEDIUM& medium) {
    const RECT whole{0, 0, width_, height_};
    if (medium.tymed == TYMED_ENHMF) {
        ::PlayEnhMetaFile(Context(), medium.hEnhMetaFile, &whole);
        return;
    }
    const Win::SavedDc saved(Context());
    const auto* const picture =
        static_cast<const METAFILEPICT*>(::GlobalLock(medium.hMetaFilePict));
    ::SetMapMode(Context(), MM_ANISOTROPIC);
    ::SetViewportExtEx(Context(), width_, height_, nullptr);
    ::PlayMetaFile(Context(), picture->hMF);
    ::GlobalUnlock(medium.hMetaFilePict);
}

} // namespace Quorvane
