// SPDX-License-Identifier: MIT
// What the screen shows of a window.
#include "tests/form/driving/Picture.h"

#include "tests/form/driving/Wait.h"

#include <set>

#include <wincodec.h>

namespace Quorvane::Driving {

namespace {

Picture PictureOfScreen(const RECT& area) {
    Picture picture{
        static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top), {}};
    picture.Pixels.resize(static_cast<std::size_t>(picture.Width) *
                          static_cast<std::size_t>(picture.Height));
    HDC const screen = GetDC(nullptr);
    HDC const memory = CreateCompatibleDC(screen);
    HBITMAP const bitmap = CreateCompatibleBitmap(screen, picture.Width, picture.Height);
    HGDIOBJ const former = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, picture.Width, picture.Height, screen, area.left, area.top, SRCCOPY);
    SelectObject(memory, former);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = picture.Width;
    info.bmiHeader.biHeight = -picture.Height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    GetDIBits(screen, bitmap, 0, static_cast<UINT>(picture.Height), picture.Pixels.data(), &info,
              DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    for (std::uint32_t& pixel : picture.Pixels) {
        pixel &= 0xFFFFFFU;
    }
    return picture;
}

void Check(HRESULT result) {
    if (FAILED(result)) {
        throw DriveError("a picture cannot be written");
    }
}

/// Releases an interface with itself.
template <class I>
class Owned {
  public:
    Owned() = default;
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() {
        if (object_) {
            object_->Release();
        }
    }
    I** operator&() { return &object_; }
    I* operator->() const { return object_; }
    I* Get() const { return object_; }

  private:
    I* object_ = nullptr;
};

} // namespace

std::size_t Picture::ColorCount() const {
    return std::set<std::uint32_t>(Pixels.begin(), Pixels.end()).size();
}

Picture PictureOf(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    // The frame of an X window manager is thinner than the one that the window reckons with.
    InflateRect(&area, -GetSystemMetrics(SM_CXFRAME), 1 - GetSystemMetrics(SM_CYFRAME));
    return PictureOfScreen(area);
}

Picture PictureOfClient(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return PictureOfScreen(area);
}

Picture RestingPictureOfClient(HWND window) {
    constexpr DWORD Rest = 150;
    Picture picture;
    Expect("the window is painted", [&] {
        const bool isPainted = !GetUpdateRect(window, nullptr, FALSE);
        picture = PictureOfClient(window);
        // What is painted is on the screen a little later.
        Sleep(Rest);
        return isPainted && PictureOfClient(window).Pixels == picture.Pixels;
    });
    return picture;
}

void SavePng(const Picture& picture, const std::filesystem::path& path) {
    std::filesystem::create_directories(path.parent_path());
    Owned<IWICImagingFactory> factory;
    Check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           __uuidof(IWICImagingFactory), reinterpret_cast<void**>(&factory)));
    Owned<IWICStream> stream;
    Check(factory->CreateStream(&stream));
    Check(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE));
    Owned<IWICBitmapEncoder> encoder;
    Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder));
    Check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache));
    Owned<IWICBitmapFrameEncode> frame;
    Check(encoder->CreateNewFrame(&frame, nullptr));
    Check(frame->Initialize(nullptr));
    Check(frame->SetSize(static_cast<UINT>(picture.Width), static_cast<UINT>(picture.Height)));
    // Three bytes a pixel: a screen has no transparency.
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    Check(frame->SetPixelFormat(&format));
    std::vector<BYTE> bytes;
    bytes.reserve(picture.Pixels.size() * 3);
    for (const std::uint32_t pixel : picture.Pixels) {
        bytes.push_back(static_cast<BYTE>(pixel));
        bytes.push_back(static_cast<BYTE>(pixel >> 8));
        bytes.push_back(static_cast<BYTE>(pixel >> 16));
    }
    Check(frame->WritePixels(static_cast<UINT>(picture.Height),
                             static_cast<UINT>(picture.Width) * 3, static_cast<UINT>(bytes.size()),
                             bytes.data()));
    Check(frame->Commit());
    Check(encoder->Commit());
}

} // namespace Quorvane::Driving
