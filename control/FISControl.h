// SPDX-License-Identifier: MIT
// The control class as its hosts see it.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include "QuorvaneAxEditor.h"
#include "control/Display.h"
#include "control/com/ClassInfo.h"
#include "control/com/ClientSite.h"
#include "control/com/ComObject.h"
#include "control/com/ConnectionPoint.h"
#include "control/com/Dispatch.h"

namespace Quorvane {

/// One control on a host's form. All controls of the process share one fuzzy system (see
/// shared/Definition.h); a control of its own has only its appearance, its site and its sinks.
class FISControl final
    : public Com::ComObject<Com::DualDispatch<_FISControl>, Com::SupportsErrorInfo<_FISControl>,
                            Com::ConnectionPoints<__FISControl, IPropertyNotifySink>,
                            Com::ProvideClassInfo<::FISControl, __FISControl>,
                            Com::Chain<IPersistStreamInit, IPersist>, IPersistPropertyBag,
                            IOleObject, IOleControl> {
  public:
    /// A control that lives inside its host's window, and that asks for its site before it is
    /// loaded: design or run mode, font and locale come from there.
    static constexpr DWORD MiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                        OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                        OLEMISC_SETCLIENTSITEFIRST;

    /// As part of an aggregate where `outer` is not null.
    explicit FISControl(IUnknown* outer);

    // _FISControl, appearance: FISControl.cpp
    STDMETHODIMP get_Caption(BSTR* value) noexcept override;
    STDMETHODIMP put_Caption(BSTR value) noexcept override;
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) noexcept override;
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_Font(IFontDisp** value) noexcept override;
    STDMETHODIMP putref_Font(IFontDisp* value) noexcept override;
    STDMETHODIMP get_BackColor(OLE_COLOR* value) noexcept override;
    STDMETHODIMP put_BackColor(OLE_COLOR value) noexcept override;
    STDMETHODIMP get_ForeColor(OLE_COLOR* value) noexcept override;
    STDMETHODIMP put_ForeColor(OLE_COLOR value) noexcept override;
    STDMETHODIMP Refresh() noexcept override;

    // _FISControl, definition: FISControl.cpp
    STDMETHODIMP get_Inputs(BSTR* value) noexcept override;
    STDMETHODIMP put_Inputs(BSTR value) noexcept override;
    STDMETHODIMP get_Outputs(BSTR* value) noexcept override;
    STDMETHODIMP put_Outputs(BSTR value) noexcept override;
    STDMETHODIMP get_Rules(BSTR* value) noexcept override;
    STDMETHODIMP put_Rules(BSTR value) noexcept override;

    // _FISControl, run time: FISControlValues.cpp
    STDMETHODIMP put_DataShow(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP get_InVals(IDictionary** value) noexcept override;
    STDMETHODIMP putref_InVals(IDictionary* value) noexcept override;
    STDMETHODIMP get_OutVals(IDictionary** value) noexcept override;
    STDMETHODIMP putref_DefOutVals(IDictionary* value) noexcept override;
    STDMETHODIMP putref_ErrOutVals(IDictionary* value) noexcept override;

    // _FISControl, services: Fire.cpp, BatchData.cpp, AboutAndHelp.cpp
    STDMETHODIMP Fire() noexcept override;
    STDMETHODIMP BatchData(BSTR* path, LONG* part) noexcept override;
    STDMETHODIMP ShowAboutBox() noexcept override;

    // IPersist, IPersistStreamInit, IPersistPropertyBag: FISControlPersistence.cpp
    STDMETHODIMP GetClassID(CLSID* clsid) noexcept override;
    STDMETHODIMP IsDirty() noexcept override;
    STDMETHODIMP InitNew() noexcept override;
    STDMETHODIMP Load(IStream* stream) noexcept override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) noexcept override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) noexcept override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept override;

    // IOleObject: FISControlSite.cpp
    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR object) noexcept override;
    STDMETHODIMP Close(DWORD saveOption) noexcept override;
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) noexcept override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) noexcept override;
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) noexcept override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
    STDMETHODIMP Update() noexcept override;
    STDMETHODIMP IsUpToDate() noexcept override;
    STDMETHODIMP GetUserClassID(CLSID* clsid) noexcept override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* name) noexcept override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** sinks) noexcept override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) noexcept override;

    // IOleControl: FISControlSite.cpp
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override;
    STDMETHODIMP OnMnemonic(LPMSG message) noexcept override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID property) noexcept override;
    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override;

  protected:
    /// The end of the control: the process-wide model goes with it.
    void FinalRelease() noexcept override;

  private:
    /// The text that a control is captioned with until the host sets another.
    static constexpr std::int32_t DefaultCaptionId = 36;

    /// Tells the host that a persisted property has changed.
    void PropertyChanged(DISPID property);

    /// Raises the platform's error 382 in run mode: the definition belongs to design time.
    void RequireDesignMode() const;

    /// Raises the platform's error `error` in design mode: values belong to run time.
    void RequireRunMode(std::uint32_t error) const;

    void InitProperties();
    void ReadProperties(IPropertyBag& bag, IErrorLog* log);
    void WriteProperties(IPropertyBag& bag, bool all) const;

    /// The font of the form, or that of the user's dialogs where the host offers none.
    Com::ComPtr<IFontDisp> AmbientFont() const;

    void AmbientLocaleChanged();

    /// One cycle without the event: outputs, or the error outputs and the message.
    void RunCycle() noexcept;

    void RaiseInferComplate();

    Com::ClientSite site_;
    Com::ComPtr<IOleAdviseHolder> adviseHolder_;
    Display display_;
    /// In HIMETRIC: 4,800 by 3,000 twips until the host sets another.
    SIZEL extent_{8467, 5292};
    bool dataShow_ = false;
    bool isDirty_ = false;
};

} // namespace Quorvane
