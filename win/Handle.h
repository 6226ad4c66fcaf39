// SPDX-License-Identifier: MIT
// Owners of the platform's handles: one template, and a few lines per kind of handle.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <utility>

#include "win/Counted.h"

namespace Quorvane::Win {

/// Owns one handle; a null one is none. `Kind` names the handle's type and how it ends.
template <class Kind>
class Handle {
  public:
    using Type = typename Kind::Type;

    Handle() noexcept = default;

    /// Takes the handle over.
    explicit Handle(Type handle) noexcept : handle_(handle) { Count(1); }

    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        Handle taken(std::move(other));
        std::swap(handle_, taken.handle_);
        return *this;
    }
    ~Handle() { Reset(); }

    Type Get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != nullptr; }

    void Reset() noexcept {
        if (handle_) {
            Kind::Close(std::exchange(handle_, nullptr));
            LiveCount<Kind>::Add(-1);
        }
    }

    /// Hands the handle over to the caller.
    Type Detach() noexcept {
        Count(-1);
        return std::exchange(handle_, nullptr);
    }

  private:
    void Count(LONG difference) noexcept {
        if (handle_) {
            LiveCount<Kind>::Add(difference);
        }
    }

    Type handle_ = nullptr;
};

/// A kind of handle that DeleteObject ends.
template <class T>
struct GdiKind {
    using Type = T;
    static void Close(T handle) noexcept { ::DeleteObject(handle); }
};

struct FontKind : GdiKind<HFONT> {};
struct BrushKind : GdiKind<HBRUSH> {};
struct PenKind : GdiKind<HPEN> {};
struct BitmapKind : GdiKind<HBITMAP> {};
struct RegionKind : GdiKind<HRGN> {};

struct IconKind {
    using Type = HICON;
    static void Close(HICON icon) noexcept { ::DestroyIcon(icon); }
};

struct ImageListKind {
    using Type = HIMAGELIST;
    static void Close(HIMAGELIST list) noexcept { ::ImageList_Destroy(list); }
};

struct AcceleratorKind {
    using Type = HACCEL;
    static void Close(HACCEL table) noexcept { ::DestroyAcceleratorTable(table); }
};

/// A device context of memory or of a metafile that is being recorded.
struct MemoryDcKind {
    using Type = HDC;
    static void Close(HDC context) noexcept { ::DeleteDC(context); }
};

struct MetaFileKind {
    using Type = HMETAFILE;
    static void Close(HMETAFILE file) noexcept { ::DeleteMetaFile(file); }
};

struct EnhMetaFileKind {
    using Type = HENHMETAFILE;
    static void Close(HENHMETAFILE file) noexcept { ::DeleteEnhMetaFile(file); }
};

struct GlobalMemoryKind {
    using Type = HGLOBAL;
    static void Close(HGLOBAL memory) noexcept { ::GlobalFree(memory); }
};

struct KernelKind {
    using Type = HANDLE;
    static void Close(HANDLE object) noexcept { ::CloseHandle(object); }
};

using Font = Handle<FontKind>;
using Brush = Handle<BrushKind>;
using Pen = Handle<PenKind>;
using Bitmap = Handle<BitmapKind>;
using Region = Handle<RegionKind>;
using Icon = Handle<IconKind>;
using Accelerators = Handle<AcceleratorKind>;
using MemoryDc = Handle<MemoryDcKind>;
using MetaFile = Handle<MetaFileKind>;
using EnhMetaFile = Handle<EnhMetaFileKind>;
using GlobalMemory = Handle<GlobalMemoryKind>;
/// A process, thread or event; never the invalid handle that files have.
using KernelObject = Handle<KernelKind>;

/// Selects a GDI object into a device context for as long as it lives.
class Selection {
  public:
    Selection(HDC context, HGDIOBJ object) noexcept
        : context_(context), former_(::SelectObject(context, object)) {}
    ~Selection() { ::SelectObject(context_, former_); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

  private:
    HDC context_;
    HGDIOBJ former_;
};

/// Puts a device context back into the state in which it was found.
class SavedDc {
  public:
    explicit SavedDc(HDC context) noexcept : context_(context), state_(::SaveDC(context)) {}
    ~SavedDc() {
        if (state_) {
            // The last one, not the one of this number: in a metafile the number means another
            // state, that of whoever plays it.
            ::RestoreDC(context_, -1);
        }
    }
    SavedDc(const SavedDc&) = delete;
    SavedDc& operator=(const SavedDc&) = delete;

  private:
    HDC context_;
    int state_;
};

/// The painting of a window, in answer to WM_PAINT.
class PaintDc {
  public:
    explicit PaintDc(HWND window) noexcept
        : window_(window), context_(::BeginPaint(window, &paint_)) {}
    ~PaintDc() { ::EndPaint(window_, &paint_); }
    PaintDc(const PaintDc&) = delete;
    PaintDc& operator=(const PaintDc&) = delete;

    HDC Get() const noexcept { return context_; }

  private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC context_;
};

/// The device context of a window, or of the screen for a null window.
class WindowDc {
  public:
    explicit WindowDc(HWND window) noexcept : window_(window), context_(::GetDC(window)) {}
    ~WindowDc() { ::ReleaseDC(window_, context_); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;

    HDC Get() const noexcept { return context_; }

  private:
    HWND window_;
    HDC context_;
};

} // namespace Quorvane::Win
