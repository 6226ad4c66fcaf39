// SPDX-License-Identifier: MIT
// The property page class `FIS_IO` as frames see it.
#include "editor/windows/FIS_IO.h"

#include <olectl.h>
#include <oleidl.h>

#include "com/ClientSite.h"
#include "com/ExceptionInfo.h"
#include "com/Scoped.h"
#include "com/TaskMemory.h"
#include "shared/Definition.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {
namespace {

/// A control, whose properties are assigned by name.
class LateBoundControl final : public SelectedControl {
  public:
    explicit LateBoundControl(Com::ComPtr<IDispatch> control) : control_(std::move(control)) {}

    void Put(TextView property, const Text& value) override {
        Text name(property);
        auto* const wideName = reinterpret_cast<wchar_t*>(name.data());
        LPOLESTR names[] = {wideName};
        DISPID id = DISPID_UNKNOWN;
        Com::Check(control_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
        Com::Variant argument{TextView(value)};
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS arguments{&argument.Get(), &put, 1, 1};
        Com::ExceptionInfo raised;
        const HRESULT result =
            control_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &arguments,
                             nullptr, raised.Get(), nullptr);
        if (result == DISP_E_EXCEPTION) {
            raised.FillIn();
            throw Com::HresultError(raised.Number(), Text(raised.Description()));
        }
        Com::Check(result);
    }

  private:
    Com::ComPtr<IDispatch> control_;
};

/// Whether a control runs: its definition cannot be set then. What a host wraps its control in may
/// have no site to ask; the control itself then refuses what it must.
bool IsInRunMode(IUnknown* control) {
    const auto object = Com::Query<IOleObject>(control);
    if (!object) {
        return false;
    }
    Com::ComPtr<IOleClientSite> clientSite;
    object->GetClientSite(clientSite.Put());
    Com::ClientSite site;
    site.Set(clientSite.Get());
    return site.UserMode();
}

} // namespace

FIS_IO::FIS_IO(IUnknown* outer)
    : ComObject(outer),
      view_([this] { ReportChanged(); },
            [this]() -> std::shared_ptr<void> { return std::make_shared<Com::KeepAlive>(this); }) {}

void FIS_IO::ReportChanged() noexcept {
    // Held, as the frame may take its site away while it answers.
    if (const Com::ComPtr<IPropertyPageSite> site = site_) {
        site->OnStatusChange(PROPPAGESTATUS_DIRTY);
    }
}

void FIS_IO::FinalRelease() noexcept {
    view_.Destroy();
}

STDMETHODIMP FIS_IO::SetPageSite(IPropertyPageSite* site) noexcept {
    site_ = site;
    return S_OK;
}

STDMETHODIMP FIS_IO::Activate(HWND parent, LPCRECT position, BOOL) noexcept {
    return Com::Guard<IPropertyPage>([&] {
        Com::In(position);
        view_.Destroy();
        view_.Create(parent, *position);
    });
}

STDMETHODIMP FIS_IO::Deactivate() noexcept {
    view_.Destroy();
    return S_OK;
}

STDMETHODIMP FIS_IO::GetPageInfo(PROPPAGEINFO* info) noexcept {
    return Com::Guard<IPropertyPage>([&] {
        PROPPAGEINFO& result = Com::Out(info);
        result.cb = sizeof result;
        result.pszTitle = nullptr;
        result.pszDocString = nullptr;
        result.pszHelpFile = nullptr;
        result.dwHelpContext = 0;
        result.size = view_.NaturalSize();
        result.pszTitle = Com::NewTaskText(Main::GetText(TextIds::InferenceSystem));
    });
}

STDMETHODIMP FIS_IO::SetObjects(ULONG count, IUnknown** objects) noexcept {
    return Com::Guard<IPropertyPage>([&] {
        selectedControls_.clear();
        if (count == 0) {
            return;
        }
        Com::Out(objects);
        for (ULONG i = 0; i < count; ++i) {
            selectedControls_.emplace_back(objects[i]);
        }
        view_.Load(IsInRunMode(selectedControls_.front().Get()));
    });
}

STDMETHODIMP FIS_IO::Show(UINT command) noexcept {
    const Com::KeepAlive alive(this);
    view_.Show(command);
    return S_OK;
}

STDMETHODIMP FIS_IO::Move(LPCRECT position) noexcept {
    return Com::Guard<IPropertyPage>([&] { view_.Move(Com::In(position)); });
}

STDMETHODIMP FIS_IO::IsPageDirty() noexcept {
    return view_.Changed() ? S_OK : S_FALSE;
}

bool FIS_IO::ApplyToControl() {
    if (selectedControls_.empty()) {
        throw Com::HresultError(E_UNEXPECTED);
    }
    const Com::ComPtr<IUnknown> first = selectedControls_.front();
    if (IsInRunMode(first.Get())) {
        throw Com::HresultError(CTL_E_SETNOTSUPPORTEDATRUNTIME);
    }
    auto control = first.As<IDispatch>();
    if (!control) {
        throw Com::HresultError(E_NOINTERFACE);
    }
    LateBoundControl selected(std::move(control));
    return view_.Apply(selected);
}

STDMETHODIMP FIS_IO::Apply() noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<IPropertyPage>([&] {
        try {
            // A refusal has been shown; a failure keeps the frame open and the edits pending.
            return ApplyToControl() ? S_OK : E_FAIL;
        } catch (...) {
            view_.ShowFailure();
            throw;
        }
    });
}

STDMETHODIMP FIS_IO::Help(LPCOLESTR) noexcept {
    // Where the page has no help file, the frame may show another one.
    return view_.ShowHelp() ? S_OK : E_NOTIMPL;
}

STDMETHODIMP FIS_IO::TranslateAccelerator(MSG* message) noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<IPropertyPage>(
        [&] { return view_.TranslateKey(Com::Out(message)) ? S_OK : S_FALSE; });
}

STDMETHODIMP FIS_IO::EditProperty(DISPID) noexcept {
    return E_NOTIMPL;
}

} // namespace Quorvane::Editor
