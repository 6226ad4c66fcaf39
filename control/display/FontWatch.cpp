// SPDX-License-Identifier: MIT
// A font object of which changes are noticed.
#include "control/display/FontWatch.h"

#include "com/ComObject.h"

namespace Quorvane {

/// What the font calls. It may outlive the watch that made it, and then does nothing.
class FontSink final : public Com::ComObject<IPropertyNotifySink> {
  public:
    explicit FontSink(const std::function<void()>& changed) : changed_(&changed) {}

    void Forget() noexcept { changed_ = nullptr; }

    // IPropertyNotifySink
    STDMETHODIMP OnChanged(DISPID) noexcept override {
        return Com::Guard<IPropertyNotifySink>([&] {
            // Copied: the call may end the watch that owns the function.
            if (const auto changed = changed_ ? *changed_ : nullptr) {
                changed();
            }
        });
    }
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

  private:
    const std::function<void()>* changed_;
};

FontWatch::FontWatch() noexcept = default;

FontWatch::~FontWatch() {
    Disconnect();
}

void FontWatch::Set(Com::ComPtr<IFontDisp> font) {
    Disconnect();
    std::swap(font_, font);
    const auto container = font_.As<IConnectionPointContainer>();
    Com::ComPtr<IConnectionPoint> point;
    if (!container ||
        FAILED(container->FindConnectionPoint(__uuidof(IPropertyNotifySink), point.Put()))) {
        return;
    }
    auto sink = Com::MakeObject<FontSink>(changed_);
    if (SUCCEEDED(point->Advise(sink.Get(), &cookie_))) {
        sink_ = std::move(sink);
        point_ = std::move(point);
    } else {
        sink->Forget();
    }
}

void FontWatch::Disconnect() noexcept {
    if (sink_) {
        sink_->Forget();
        point_->Unadvise(cookie_);
        sink_.Reset();
        point_.Reset();
    }
}

} // namespace Quorvane
