// SPDX-License-Identifier: MIT
// PropertyPage: one property page of a control, from its creation to its release.
#pragma once

#include <ocidl.h>

#include <functional>
#include <memory>

#include "com/ComPtr.h"
#include "shared/Text.h"

namespace Quorvane::Host {

class PropertyPage {
  public:
    /// Creates a page of this class for an object; null where it cannot be created. `onStatus` is
    /// called whenever the page reports a change, until the page is closed. Throws
    /// Com::HresultError where it does not open.
    static std::unique_ptr<PropertyPage> Open(const CLSID& clsid, IUnknown* object, LCID locale,
                                              std::function<void()> onStatus);

    PropertyPage(const PropertyPage&) = delete;
    PropertyPage& operator=(const PropertyPage&) = delete;
    ~PropertyPage();

    const Text& Title() const { return title_; }
    /// What the page needs at least, in pixels.
    const SIZE& Size() const { return size_; }

    /// Shows the page in an area of a window; its own window where that is made only now, else
    /// null. Throws Com::HresultError.
    HWND Show(HWND parent, const RECT& area);
    void Hide();
    /// Moves a page that has been shown.
    void Move(const RECT& area);

    bool IsDirty() const { return page_->IsPageDirty() == S_OK; }
    /// Applies what has been edited; false where the page refuses.
    bool Apply() { return !IsDirty() || SUCCEEDED(page_->Apply()); }
    void Help() { page_->Help(nullptr); }
    /// Whether the page takes a key for itself.
    bool TranslateKey(MSG& message) { return page_->TranslateAccelerator(&message) == S_OK; }

  private:
    class Site;

    PropertyPage() = default;
    void Start(IUnknown* object);

    Com::ComPtr<IPropertyPage> page_;
    Com::ComPtr<Site> site_;
    Text title_;
    SIZE size_{};
    bool isActive_ = false;
};

} // namespace Quorvane::Host
