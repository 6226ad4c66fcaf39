// SPDX-License-Identifier: MIT
// PropertyPage: one property page of a control, from its creation to its release.
#include "host/form/design/PropertyPage.h"

#include <utility>

#include "com/ComObject.h"
#include "com/FailedCall.h"
#include "com/Scoped.h"

namespace Quorvane::Host {

/// What a page tells its frame.
class PropertyPage::Site final : public Com::ComObject<IPropertyPageSite> {
  public:
    Site(std::function<void()> onStatus, LCID locale)
        : onStatus_(std::move(onStatus)), locale_(locale) {}
    void Detach() { onStatus_ = nullptr; }

    STDMETHODIMP OnStatusChange(DWORD) noexcept override {
        return Com::Guard<IPropertyPageSite>([this] {
            if (onStatus_) {
                onStatus_();
            }
        });
    }
    STDMETHODIMP GetLocaleID(LCID* locale) noexcept override {
        *locale = locale_;
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown** container) noexcept override {
        *container = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP TranslateAccelerator(MSG*) noexcept override { return S_FALSE; }

  private:
    ~Site() override = default;

    std::function<void()> onStatus_;
    LCID locale_;
};

std::unique_ptr<PropertyPage> PropertyPage::Open(const CLSID& clsid, IUnknown* object, LCID locale,
                                                 std::function<void()> onStatus) {
    std::unique_ptr<PropertyPage> page(new PropertyPage);
    if (FAILED(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IPropertyPage),
                                  page->page_.PutVoid()))) {
        return nullptr;
    }
    page->site_ = Com::MakeObject<Site>(std::move(onStatus), locale);
    page->Start(object);
    return page;
}

void PropertyPage::Start(IUnknown* object) {
    constexpr TextView Action = u"open a property page";
    Com::Check(page_->SetPageSite(site_.Get()), Action);
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    Com::Check(page_->GetPageInfo(&info), Action);
    title_ = Com::ToText(info.pszTitle);
    size_ = info.size;
    ::CoTaskMemFree(info.pszTitle);
    ::CoTaskMemFree(info.pszDocString);
    ::CoTaskMemFree(info.pszHelpFile);
    Com::Check(page_->SetObjects(1, &object), Action);
}

PropertyPage::~PropertyPage() {
    if (!site_) {
        return;
    }
    site_->Detach();
    if (isActive_) {
        page_->Deactivate();
    }
    page_->SetObjects(0, nullptr);
    page_->SetPageSite(nullptr);
}

HWND PropertyPage::Show(HWND parent, const RECT& area) {
    HWND made = nullptr;
    if (!isActive_) {
        Com::Check(page_->Activate(parent, &area, FALSE), u"open a property page");
        isActive_ = true;
        made = ::GetWindow(::GetWindow(parent, GW_CHILD), GW_HWNDLAST);
    }
    page_->Move(&area);
    page_->Show(SW_SHOW);
    return made;
}

void PropertyPage::Hide() {
    if (isActive_) {
        page_->Show(SW_HIDE);
    }
}

void PropertyPage::Move(const RECT& area) {
    if (isActive_) {
        page_->Move(&area);
    }
}

} // namespace Quorvane::Host
