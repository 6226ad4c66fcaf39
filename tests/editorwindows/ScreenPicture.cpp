// SPDX-License-Identifier: MIT
// What the screen shows of a window of this thread.
#include "tests/editorwindows/ScreenPicture.h"

#include <algorithm>
#include <sstream>

#include "tests/editorwindows/PageTest.h"
#include "win/Handle.h"

namespace Quorvane {
namespace {

/// What is painted is on the screen a little later.
constexpr DWORD Rest = 80;

ScreenPicture Take(HWND window) {
    RECT area{};
    ::GetClientRect(window, &area);
    POINT corner{};
    ::ClientToScreen(window, &corner);
    ScreenPicture picture{static_cast<int>(area.right), static_cast<int>(area.bottom), {}};
    picture.Pixels.resize(static_cast<std::size_t>(area.right) *
                          static_cast<std::size_t>(area.bottom));
    const Win::WindowDc screen(nullptr);
    const Win::MemoryDc memory(::CreateCompatibleDC(screen.Get()));
    const Win::Bitmap bitmap(::CreateCompatibleBitmap(screen.Get(), picture.Width, picture.Height));
    {
        const Win::Selection selected(memory.Get(), bitmap.Get());
        ::BitBlt(memory.Get(), 0, 0, picture.Width, picture.Height, screen.Get(), corner.x,
                 corner.y, SRCCOPY);
    }
    BITMAPINFO info{};
    info.bmiHeader = {
        sizeof info.bmiHeader, picture.Width, -picture.Height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    ::GetDIBits(screen.Get(), bitmap.Get(), 0, static_cast<UINT>(picture.Height),
                picture.Pixels.data(), &info, DIB_RGB_COLORS);
    for (std::uint32_t& pixel : picture.Pixels) {
        pixel &= 0xFFFFFFU;
    }
    return picture;
}

} // namespace

ScreenPicture ScreenPicture::Of(HWND window) {
    ScreenPicture picture;
    for (int i = 0; i < 40; ++i) {
        Pump();
        ::Sleep(Rest);
        Pump();
        ScreenPicture later = Take(window);
        if (later.Pixels == picture.Pixels) {
            break;
        }
        picture = std::move(later);
    }
    return picture;
}

ScreenPicture ScreenPicture::OfRepainted(HWND window) {
    ::RedrawWindow(window, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    return Of(window);
}

int ScreenPicture::Count(const RECT& area, std::uint32_t color) const {
    int count = 0;
    for (LONG y = area.top; y < area.bottom; ++y) {
        for (LONG x = area.left; x < area.right; ++x) {
            count += At(x, y) == color ? 1 : 0;
        }
    }
    return count;
}

std::string ScreenPicture::DifferenceFrom(const ScreenPicture& other) const {
    std::ostringstream difference;
    if (Width != other.Width || Height != other.Height) {
        difference << Width << 'x' << Height << " and " << other.Width << 'x' << other.Height;
        return difference.str();
    }
    int count = 0;
    RECT where{Width, Height, 0, 0};
    for (LONG y = 0; y < Height; ++y) {
        for (LONG x = 0; x < Width; ++x) {
            if (At(x, y) != other.At(x, y)) {
                ++count;
                where = {std::min(where.left, x), std::min(where.top, y),
                         std::max(where.right, x + 1), std::max(where.bottom, y + 1)};
            }
        }
    }
    if (count != 0) {
        difference << count << " pixels between " << where.left << ',' << where.top << " and "
                   << where.right << ',' << where.bottom;
    }
    return difference.str();
}

} // namespace Quorvane
