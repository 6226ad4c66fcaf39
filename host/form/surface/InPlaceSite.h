// SPDX-License-Identifier: MIT
// InPlaceSite: the place on a form's window that holds one control.
#pragma once

#include <ocidl.h>
#include <oleidl.h>

#include <functional>

#include "com/ComObject.h"
#include "host/container/AmbientProperties.h"
#include "host/container/ControlSite.h"

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
class InPlaceFrame final
    : public Com::ComObject<Com::Chain<IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow>> {
  public:
    explicit InPlaceFrame(SiteOwner& owner) : owner_(&owner) {}

    /// The owner is going; calls end here from now on.
    void Detach() { owner_ = nullptr; }

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    // IOleInPlaceUIWindow
    STDMETHODIMP GetBorder(LPRECT) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) noexcept override {
        return INPLACE_E_NOTOOLSPACE;
    }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) noexcept override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) noexcept override;

    // IOleInPlaceFrame
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) noexcept override { return S_FALSE; }

  private:
    ~InPlaceFrame() override = default;

    SiteOwner* owner_;
};

/// The site of a control with windows. Ambient properties are those of a ControlSite.
class InPlaceSite final
    : public Com::ComObject<IOleClientSite, IOleControlSite,
                            Com::Chain<IOleInPlaceSite, IOleWindow>, IDispatch> {
  public:
    InPlaceSite(SiteOwner& owner, AmbientProperties ambients);

    /// The owner is going; calls end here from now on.
    void Detach();

    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override;
    STDMETHODIMP ShowObject() noexcept override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() noexcept override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** control) noexcept override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container,
                                 DWORD flags) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) noexcept override { return S_FALSE; }
    STDMETHODIMP OnFocus(BOOL hasFocus) noexcept override;
    STDMETHODIMP ShowPropertyFrame() noexcept override;

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() noexcept override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() noexcept override { return S_OK; }
    STDMETHODIMP OnUIActivate() noexcept override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT position, LPRECT clip,
                                  LPOLEINPLACEFRAMEINFO info) noexcept override;
    STDMETHODIMP Scroll(SIZE) noexcept override { return S_FALSE; }
    STDMETHODIMP OnUIDeactivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() noexcept override { return S_OK; }
    STDMETHODIMP DiscardUndoState() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT position) noexcept override;

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept override;

  private:
    ~InPlaceSite() override = default;

    SiteOwner* owner_;
    Com::ComPtr<ControlSite> ambients_;
    Com::ComPtr<InPlaceFrame> frame_;
};

} // namespace Quorvane::Host
