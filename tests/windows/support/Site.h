// SPDX-License-Identifier: MIT
// The place on a test's form that a control is put on: every site interface, and a record of calls.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "com/ComObject.h"
#include "com/Scoped.h"

namespace Quorvane {

/// The names of the calls that a control made, in their order, and what a script has them answer.
class CallRecord {
  public:
    /// Answers that a call gives instead of its usual one, by its name.
    std::map<std::string, HRESULT> Answers;

    /// The answer of a call; what it usually is where the script has no other.
    HRESULT AnswerOf(const std::string& call, HRESULT usual = S_OK) const;

    /// Records a call, and gives its answer.
    HRESULT Answer(const std::string& call, HRESULT usual = S_OK);

    void Add(std::string call) { calls_.push_back(std::move(call)); }
    void Clear() { calls_.clear(); }
    int Count(const std::string& call) const;
    const std::vector<std::string>& All() const { return calls_; }

    /// The recorded calls that are among these, in their order.
    std::vector<std::string> Only(std::initializer_list<std::string> calls) const;

  private:
    std::vector<std::string> calls_;
};

/// What a test's form is like. Odd hosts are made from it.
struct SiteBehaviour {
    /// Interfaces that the site's QueryInterface refuses, besides those of the next two.
    std::vector<IID> Lacks;
    /// A site that offers no IOleInPlaceSite at all is one whose QueryInterface refuses it.
    bool OffersInPlace = true;
    bool OffersInPlaceEx = false;
    bool CanActivate = true;
    /// What an extended site answers to a control that is about to become UI active.
    HRESULT LetsUIActivate = S_OK;
    /// GetWindowContext gives frame, document and rectangles, or only says S_OK.
    bool FillsContext = true;
    HRESULT ContainerAnswer = E_NOINTERFACE;
    HRESULT ShowsPropertyFrame = E_NOTIMPL;
    /// What the host answers to a key that the control hands on.
    HRESULT TakesKeys = S_FALSE;
};

/// The frame of the form; it is its document window as well.
class Frame final : public Com::ComObject<Com::Chain<IOleInPlaceFrame, IOleInPlaceUIWindow>> {
  public:
    Frame(HWND window, CallRecord& calls) : window_(window), calls_(calls) {}

    const Com::ComPtr<IOleInPlaceActiveObject>& ActiveObject() const { return active_; }

    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) noexcept override {
        return INPLACE_E_NOTOOLSPACE;
    }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) noexcept override { return S_OK; }
    STDMETHODIMP SetStatusText(LPCOLESTR) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override;
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) noexcept override { return S_FALSE; }

  private:
    HWND window_;
    CallRecord& calls_;
    Com::ComPtr<IOleInPlaceActiveObject> active_;
};

class Site final
    : public Com::ComObject<IOleClientSite,
                            Com::Chain<IOleInPlaceSiteEx, IOleInPlaceSite, IOleWindow>,
                            IOleControlSite, IDispatch, IAdviseSink, IPropertyNotifySink> {
  public:
    Site(HWND window, const RECT& position);

    CallRecord Calls;
    SiteBehaviour Behaviour;
    /// The ambient properties that the form offers, and what it answers to any other.
    std::map<DISPID, Com::Variant> Ambients;
    HRESULT OtherAmbients = DISP_E_MEMBERNOTFOUND;
    /// Failures that asking for an ambient property gives.
    std::map<DISPID, HRESULT> Failures;
    RECT Position;
    /// The dispatch ids of the changed properties that the control has told of.
    std::vector<DISPID> Changed;

    const Com::ComPtr<Frame>& FrameWindow() const { return frame_; }

    // What a test of interrupted calls runs inside them, by the name of the call.
    std::map<std::string, std::function<void()>> During;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override;

    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override;
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override;
    STDMETHODIMP ShowObject() noexcept override;
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() noexcept override;
    STDMETHODIMP OnInPlaceActivate() noexcept override;
    STDMETHODIMP OnUIActivate() noexcept override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT position, LPRECT clip,
                                  LPOLEINPLACEFRAMEINFO info) noexcept override;
    STDMETHODIMP Scroll(SIZE) noexcept override { return S_FALSE; }
    STDMETHODIMP OnUIDeactivate(BOOL undoable) noexcept override;
    STDMETHODIMP OnInPlaceDeactivate() noexcept override;
    STDMETHODIMP DiscardUndoState() noexcept override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() noexcept override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT) noexcept override { return S_OK; }

    // IOleInPlaceSiteEx
    STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) noexcept override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL) noexcept override { return OnInPlaceDeactivate(); }
    STDMETHODIMP RequestUIActivate() noexcept override;

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() noexcept override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** control) noexcept override;
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(LPMSG message, DWORD modifiers) noexcept override;
    STDMETHODIMP OnFocus(BOOL focused) noexcept override;
    STDMETHODIMP ShowPropertyFrame() noexcept override;

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) noexcept override;

    // IAdviseSink
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override;
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) noexcept override;
    STDMETHODIMP_(void) OnRename(IMoniker*) noexcept override {}
    STDMETHODIMP_(void) OnSave() noexcept override;
    STDMETHODIMP_(void) OnClose() noexcept override;

    // IPropertyNotifySink
    STDMETHODIMP OnChanged(DISPID property) noexcept override;
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

  private:
    HRESULT Record(const char* call, HRESULT result = S_OK) noexcept;

    HWND window_;
    Com::ComPtr<Frame> frame_;
};

} // namespace Quorvane
