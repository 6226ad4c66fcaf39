// SPDX-License-Identifier: MIT
// Pictures of a control.
#include "com/Rendering.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "com/ErrorBoundary.h"
#include "win/Dpi.h"
#include "win/Handle.h"

namespace Quorvane::Com {
namespace {

bool IsRecording(HDC context) noexcept {
    const DWORD type = ::GetObjectType(context);
    return type == OBJ_METADC || type == OBJ_ENHMETADC;
}

/// How far from the origin a surface takes coordinates. What lies beyond is never seen, and moved
/// here it does no harm: sums and differences of coordinates stay numbers.
constexpr LONG Farthest = 1 << 27;

void BringNear(RECT& rectangle) noexcept {
    for (LONG* const edge :
         {&rectangle.left, &rectangle.top, &rectangle.right, &rectangle.bottom}) {
        *edge = std::clamp(*edge, -Farthest, Farthest);
    }
}

void Normalise(RECT& rectangle) noexcept {
    if (rectangle.left > rectangle.right) {
        std::swap(rectangle.left, rectangle.right);
    }
    if (rectangle.top > rectangle.bottom) {
        std::swap(rectangle.top, rectangle.bottom);
    }
}

/// Makes the logical units of a device context its pixels, and returns the bounds in them.
RECT UsePixels(HDC context, RECT bounds) noexcept {
    ::LPtoDP(context, reinterpret_cast<POINT*>(&bounds), 2);
    ::ModifyWorldTransform(context, nullptr, MWT_IDENTITY);
    ::SetMapMode(context, MM_TEXT);
    ::SetWindowOrgEx(context, 0, 0, nullptr);
    ::SetViewportOrgEx(context, 0, 0, nullptr);
    return bounds;
}

/// The picture in pixels of the screen.
SIZE PixelSize(const ControlCore& core) noexcept {
    const int dpi = Win::DpiOf(HWND{nullptr});
    return {Win::PixelsOfHimetric(core.Extent().cx, dpi),
            Win::PixelsOfHimetric(core.Extent().cy, dpi)};
}

void ThrowIfNull(const void* handle) {
    if (!handle) {
        throw HresultError(E_OUTOFMEMORY);
    }
}

/// The units that a metafile of 16-bit coordinates is recorded in: HIMETRIC, unless the picture is
/// too large for that.
SIZE MetaFileUnits(const SIZEL& extent) noexcept {
    constexpr LONG Most = std::numeric_limits<SHORT>::max();
    const LONG larger = std::max({extent.cx, extent.cy, Most});
    return {::MulDiv(extent.cx, Most, larger), ::MulDiv(extent.cy, Most, larger)};
}

/// A metafile with its size in HIMETRIC, in movable memory.
HGLOBAL RecordMetaFilePict(ControlCore& core) {
    const SIZEL& extent = core.Extent();
    Win::MemoryDc recorder(::CreateMetaFileW(nullptr));
    ThrowIfNull(recorder.Get());
    ::SetWindowOrgEx(recorder.Get(), 0, 0, nullptr);
    const SIZE units = MetaFileUnits(extent);
    ::SetWindowExtEx(recorder.Get(), units.cx, units.cy, nullptr);
    DrawIn(core, recorder.Get(), {0, 0, units.cx, units.cy});
    Win::MetaFile file(::CloseMetaFile(recorder.Detach()));
    Win::GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT)));
    ThrowIfNull(file.Get());
    ThrowIfNull(memory.Get());
    auto* const picture = static_cast<METAFILEPICT*>(::GlobalLock(memory.Get()));
    *picture = {MM_ANISOTROPIC, extent.cx, extent.cy, file.Detach()};
    ::GlobalUnlock(memory.Get());
    return memory.Detach();
}

/// The pixels of a metafile that is being recorded. They are as large as those of the screen really
/// are, which has little to do with its dots per inch.
SIZE RecordedSize(HDC recorder, const SIZEL& extent) noexcept {
    constexpr int HimetricPerMillimetre = 100;
    const auto pixels = [recorder](LONG length, int resolution, int millimetres) {
        return ::MulDiv(length, ::GetDeviceCaps(recorder, resolution),
                        ::GetDeviceCaps(recorder, millimetres) * HimetricPerMillimetre);
    };
    return {pixels(extent.cx, HORZRES, HORZSIZE), pixels(extent.cy, VERTRES, VERTSIZE)};
}

HENHMETAFILE RecordEnhMetaFile(ControlCore& core) {
    const SIZEL& extent = core.Extent();
    const RECT frame{0, 0, extent.cx, extent.cy};
    Win::MemoryDc recorder(::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr));
    ThrowIfNull(recorder.Get());
    const SIZE size = RecordedSize(recorder.Get(), extent);
    DrawIn(core, recorder.Get(), {0, 0, size.cx, size.cy});
    Win::EnhMetaFile file(::CloseEnhMetaFile(recorder.Detach()));
    ThrowIfNull(file.Get());
    return file.Detach();
}

HBITMAP DrawBitmap(ControlCore& core) {
    const SIZE size = PixelSize(core);
    const Win::WindowDc screen(nullptr);
    const Win::MemoryDc memory(::CreateCompatibleDC(screen.Get()));
    Win::Bitmap bitmap(::CreateCompatibleBitmap(screen.Get(), size.cx, size.cy));
    ThrowIfNull(memory.Get());
    ThrowIfNull(bitmap.Get());
    const Win::Selection selected(memory.Get(), bitmap.Get());
    DrawIn(core, memory.Get(), {0, 0, size.cx, size.cy});
    return bitmap.Detach();
}

} // namespace

void DrawIn(ControlCore& core, HDC context, RECT bounds) {
    const Win::SavedDc saved(context);
    // A metafile has no pixels: its units are recorded as they are.
    RECT area = IsRecording(context) ? bounds : UsePixels(context, bounds);
    Normalise(area);
    BringNear(area);
    core.Draw(context, area);
}

STGMEDIUM Render(ControlCore& core, DWORD mediumType) {
    STGMEDIUM medium{};
    medium.tymed = mediumType;
    switch (mediumType) {
    case TYMED_MFPICT:
        medium.hMetaFilePict = RecordMetaFilePict(core);
        break;
    case TYMED_ENHMF:
        medium.hEnhMetaFile = RecordEnhMetaFile(core);
        break;
    case TYMED_GDI:
        medium.hBitmap = DrawBitmap(core);
        break;
    default:
        throw HresultError(DV_E_TYMED);
    }
    return medium;
}

} // namespace Quorvane::Com
