// SPDX-License-Identifier: MIT
// The control class as its hosts see it.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "com/ClassInfo.h"
#include "com/ComObject.h"
#include "com/ConnectionPoint.h"
#include "com/ControlCore.h"
#include "com/DataObject.h"
#include "com/Dispatch.h"
#include "com/InPlaceActiveObject.h"
#include "com/InPlaceObject.h"
#include "com/ObjectSafety.h"
#include "com/OleControl.h"
#include "com/OleObject.h"
#include "com/PersistStorage.h"
#include "com/PropertyBrowsing.h"
#include "com/PropertyPages.h"
#include "com/QuickActivation.h"
#include "com/RunnableObject.h"
#include "com/ViewObject.h"
#include "control/display/Display.h"
#include "idl/QuorvaneAxEditor.h"

namespace Quorvane {

/// One control on a host's form. All controls of the process share one fuzzy system (see
/// shared/Definition.h); a control of its own has only its appearance, its site and its sinks.
class FISControl final
    : public Com::ComObject<Com::DualDispatch<_FISControl>,
                            Com::SupportsErrorInfo<_FISControl, IPersistPropertyBag,
                                                   IPersistStreamInit, IPersistStorage>,
                            Com::ConnectionPoints<__FISControl, IPropertyNotifySink>,
                            Com::ProvideClassInfo<::FISControl, __FISControl>,
                            Com::Chain<IPersistStreamInit, IPersist>, IPersistPropertyBag,
                            Com::OleObject, Com::OleControl, Com::InPlaceObject,
                            Com::InPlaceActiveObject, Com::ViewObject, Com::DataObject,
                            Com::PersistStorage, Com::QuickActivation, Com::RunnableObject,
                            Com::PropertyPages, Com::PropertyBrowsing, Com::ObjectSafety>,
      private Com::ControlCore,
      private DisplayOwner {
  public:
    /// A control that lives inside its host's window, and that asks for its site before it is
    /// loaded: design or run mode, font and locale come from there.
    static constexpr DWORD MiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                        OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                        OLEMISC_SETCLIENTSITEFIRST;

    /// What a person reads of the class.
    static constexpr TextView Title = u"Quorvane fuzzy inference control";

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

    // _FISControl, services: Fire.cpp, BatchData.cpp, AboutBox.cpp
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

  protected:
    /// The end of the control: the process-wide model goes with it.
    void FinalRelease() noexcept override;

    // The OLE side: FISControlFace.cpp
    Com::ControlCore& Core() noexcept override { return *this; }
    const IID& EventsId() const noexcept override { return __uuidof(__FISControl); }

  private:
    class ShowAtEnd;

    const Com::ControlTraits& Traits() const noexcept override;
    IUnknown* Unknown() noexcept override { return ControllingUnknown(); }
    IPersistStreamInit& StreamForm() noexcept override { return *this; }
    void SetClean() noexcept override { isDirty_ = false; }
    void StartIfNeeded() override;
    void OpenWindow(HWND parent, const RECT& position) override;
    void CloseWindow() noexcept override;
    HWND Window() const noexcept override { return display_.Surface(); }
    void TakeFocus(bool first) noexcept override;
    bool TranslateKey(const MSG& message) noexcept override;
    void Draw(HDC context, const RECT& bounds) override;
    void AmbientChanged(DISPID property) override;
    void ExtentChanged() override;
    void Freeze(bool freeze) noexcept override { ConnectionPoints::FreezeEvents(freeze); }

    // DisplayOwner: FISControlFace.cpp
    void OnDisplayFocus(bool focused) override;
    bool OnDisplayHelp() override;
    void OnDisplayFontChanged() override;

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

    /// Lays out for the extent where there is no window: a window has the size that the host gives
    /// it.
    void FitToExtent() noexcept;

    void AmbientLocaleChanged();
    void AmbientBackColorChanged();

    /// Shows a changed appearance, in the window or through the host.
    void ShowAppearance() noexcept;

    /// Shows what initialising or loading has set. Without a window it is laid out for the extent,
    /// with headers in the language that was chosen.
    void ShowStarted() noexcept;

    /// Has a host that draws the control itself do so anew.
    void TellIfWindowless() noexcept;

    /// Fills the lists from the model. Raises ObjectNotSet without one.
    void FillVariableLists();

    /// One cycle without the event: outputs, or the error outputs and the message.
    void RunCycle() noexcept;

    void RaiseInferComplate();

    Display display_;
    /// The objects handed out last, where they are our own: a script asks for them with every item.
    Com::ComPtr<IDictionary> inVals_;
    Com::ComPtr<IDictionary> outVals_;
    bool dataShow_ = false;
    bool isDirty_ = false;
    /// Whether a host has initialised or loaded the control, or tried to.
    bool isStarted_ = false;
};

} // namespace Quorvane
