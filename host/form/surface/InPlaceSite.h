// SPDX-License-Identifier: MIT
// InPlaceSite: the place on a form's window that holds one control.
#pragma once

#include "host/container/AmbientProperties.h"
#include "host/container/ComObject.h"
#include "host/container/ControlSite.h"

#include <functional>

#include <ocidl.h>
#include <oleidl.h>

namespace Quorvane::Host {

/// What a site asks of the form it is on. Every function may be called at any time until the site
/// is detached.
class SiteOwner {
  public:
    /// The window that controls become children of.
    virtual HWND SiteWindow() = 0;

    /// Where the control is, in pixels of that window.
    virtual RECT SiteRectangle() = 0;

    /// The control has asked to be there.
    virtual void MoveSite(const RECT& rectangle) = 0;

    /// The object that has the keyboard, null for none.
    virtual void SetActiveObject(IOleInPlaceActiveObject* object) = 0;

    /// The control has been given the keyboard, or has lost it.
    virtual void OnSiteFocus(bool hasFocus) = 0;

    /// The control asks for the form's own property frame.
    virtual void ShowPropertyFrame() = 0;

  protected:
    ~SiteOwner() = default;
};

/// The frame window of in-place activation: the form has no menus or borders to share, it only
/// notes the active object.
class InPlaceFrame final : public ComObject<IOleInPlaceFrame> {
  public:
    explicit InPlaceFrame(SiteOwner& owner) : owner_(&owner) {}

    /// The owner is going; calls end here from now on.
    void Detach() { owner_ = nullptr; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;

    // IOleWindow
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    // IOleInPlaceUIWindow
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) noexcept override {
        return INPLACE_E_NOTOOLSPACE;
    }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object,
                                              LPCOLESTR name) noexcept override;

    // IOleInPlaceFrame
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) noexcept override {
        return S_FALSE;
    }

  private:
    ~InPlaceFrame() override = default;

    SiteOwner* owner_;
};

/// The site of a control with windows. Ambient properties are those of a ControlSite.
class InPlaceSite final
    : public ComObject<IOleClientSite, IOleControlSite, IOleInPlaceSite, IDispatch> {
  public:
    InPlaceSite(SiteOwner& owner, AmbientProperties ambients);

    /// The owner is going; calls end here from now on.
    void Detach();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) noexcept override;
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* himetric, POINTF* container,
                                              DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) noexcept override {
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL hasFocus) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override;

    // IOleWindow
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    // IOleInPlaceSite
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                               IOleInPlaceUIWindow** document, LPRECT position,
                                               LPRECT clip,
                                               LPOLEINPLACEFRAMEINFO info) noexcept override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT position) noexcept override;

    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale,
                                          ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) noexcept override;

  private:
    ~InPlaceSite() override = default;

    SiteOwner* owner_;
    ComPtr<ControlSite> ambients_;
    ComPtr<InPlaceFrame> frame_;
};

} // namespace Quorvane::Host
