// SPDX-License-Identifier: MIT
// A font object of which changes are noticed, whoever makes them.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <functional>

#include "com/ComPtr.h"

namespace Quorvane {

class FontSink;

/// Holds a font object and calls a function when an attribute of it changes: hosts write
/// `control.Font.Size = 12` and expect to see it.
class FontWatch {
  public:
    FontWatch() noexcept;
    ~FontWatch();
    FontWatch(const FontWatch&) = delete;
    FontWatch& operator=(const FontWatch&) = delete;

    /// The function to call; it is not called any more once the watch has another font.
    void OnChange(std::function<void()> changed) { changed_ = std::move(changed); }

    /// Watches this font instead; null for none. Fonts that tell of no changes are held as well.
    void Set(Com::ComPtr<IFontDisp> font);

    const Com::ComPtr<IFontDisp>& Get() const noexcept { return font_; }

  private:
    void Disconnect() noexcept;

    std::function<void()> changed_;
    Com::ComPtr<IFontDisp> font_;
    Com::ComPtr<FontSink> sink_;
    Com::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace Quorvane
