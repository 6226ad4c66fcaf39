// SPDX-License-Identifier: MIT
// The appearance and definition properties of the control.
#include "control/FISControl.h"

#include "com/Fonts.h"
#include "com/Scoped.h"
#include "control/DispatchIds.h"
#include "shared/Definition.h"
#include "text/GetText.h"
#include "text/TextIds.h"
#include "win/Dpi.h"

namespace Quorvane {

namespace {

/// In HIMETRIC: 4,800 by 3,000 twips until the host sets another.
constexpr SIZEL InitialExtent{8467, 5292};

} // namespace

FISControl::FISControl(IUnknown* outer)
    : ComObject(outer), ControlCore(InitialExtent), display_(*this) {
    // Some hosts neither initialise nor load a control before they use it.
    display_.lblCaption.Caption = Main::GetText(TextIds::InferenceSystem);
    display_.lvwInput.Font.Set(NewDialogFont());
    display_.lvwOutput.Font.Set(display_.lvwInput.Font.Get());
    display_.Resize(Win::TwipsOfHimetric(InitialExtent.cx), Win::TwipsOfHimetric(InitialExtent.cy));
}

void FISControl::FinalRelease() noexcept {
    // A host that did not close the control may have gone itself: nothing is called any more.
    InPlace().Abandon();
    if (IsHeld()) {
        Definition::ReleaseModel();
    }
}

void FISControl::PropertyChanged(DISPID property) {
    const Com::KeepAlive alive(this);
    isDirty_ = true;
    ShowAppearance();
    Notify<IPropertyNotifySink>(
        [property](IPropertyNotifySink& sink) { sink.OnChanged(property); });
}

void FISControl::RequireDesignMode() const {
    if (Site().UserMode()) {
        throw FisError(static_cast<std::uint32_t>(CTL_E_SETNOTSUPPORTEDATRUNTIME), {}, {});
    }
}

STDMETHODIMP FISControl::get_Caption(BSTR* value) noexcept {
    return Com::Guard<_FISControl>(
        [&] { Com::Out(value) = Com::NewBstr(display_.lblCaption.Caption); });
}

STDMETHODIMP FISControl::put_Caption(BSTR value) noexcept {
    return Com::Guard<_FISControl>([&] {
        display_.lblCaption.Caption = Com::View(value);
        display_.FitLabel();
        PropertyChanged(DISPID_CAPTION);
    });
}

STDMETHODIMP FISControl::get_Enabled(VARIANT_BOOL* value) noexcept {
    return Com::Guard<_FISControl>(
        [&] { Com::Out(value) = display_.lvwInput.Enabled ? VARIANT_TRUE : VARIANT_FALSE; });
}

STDMETHODIMP FISControl::put_Enabled(VARIANT_BOOL value) noexcept {
    return Com::Guard<_FISControl>([&] {
        const bool enabled = value != VARIANT_FALSE;
        display_.lblCaption.Enabled = enabled;
        display_.lvwInput.Enabled = enabled;
        display_.lvwOutput.Enabled = enabled;
        PropertyChanged(DISPID_ENABLED);
    });
}

STDMETHODIMP FISControl::get_Font(IFontDisp** value) noexcept {
    return Com::Guard<_FISControl>([&] {
        Com::Out(value) = nullptr;
        display_.lvwInput.Font.Get().CopyTo(value);
    });
}

STDMETHODIMP FISControl::putref_Font(IFontDisp* value) noexcept {
    return Com::Guard<_FISControl>([&] {
        if (!value) {
            throw FisError(RuntimeError::TypeMismatch);
        }
        display_.lvwInput.Font.Set(value);
        display_.lvwOutput.Font.Set(value);
        display_.ShowFonts();
        PropertyChanged(DISPID_FONT);
    });
}

STDMETHODIMP FISControl::get_BackColor(OLE_COLOR* value) noexcept {
    return Com::Guard<_FISControl>([&] { Com::Out(value) = display_.lvwInput.BackColor; });
}

STDMETHODIMP FISControl::put_BackColor(OLE_COLOR value) noexcept {
    return Com::Guard<_FISControl>([&] {
        display_.lvwInput.BackColor = value;
        display_.lvwOutput.BackColor = value;
        PropertyChanged(DISPID_BACKCOLOR);
    });
}

STDMETHODIMP FISControl::get_ForeColor(OLE_COLOR* value) noexcept {
    return Com::Guard<_FISControl>([&] { Com::Out(value) = display_.lvwInput.ForeColor; });
}

STDMETHODIMP FISControl::put_ForeColor(OLE_COLOR value) noexcept {
    return Com::Guard<_FISControl>([&] {
        display_.lvwInput.ForeColor = value;
        display_.lvwOutput.ForeColor = value;
        PropertyChanged(DISPID_FORECOLOR);
    });
}

STDMETHODIMP FISControl::Refresh() noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<_FISControl>([&] {
        display_.Repaint();
        TellIfWindowless();
    });
}

STDMETHODIMP FISControl::get_Inputs(BSTR* value) noexcept {
    return Com::Guard<_FISControl>(
        [&] { Com::Out(value) = Com::NewBstr(Definition::State().InputsText); });
}

STDMETHODIMP FISControl::put_Inputs(BSTR value) noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<_FISControl>([&] {
        RequireDesignMode();
        Definition::State().InputsText = Com::View(value);
        FillVariableLists();
        PropertyChanged(DispatchIds::Inputs);
    });
}

STDMETHODIMP FISControl::get_Outputs(BSTR* value) noexcept {
    return Com::Guard<_FISControl>(
        [&] { Com::Out(value) = Com::NewBstr(Definition::State().OutputsText); });
}

STDMETHODIMP FISControl::put_Outputs(BSTR value) noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<_FISControl>([&] {
        RequireDesignMode();
        Definition::State().OutputsText = Com::View(value);
        FillVariableLists();
        PropertyChanged(DispatchIds::Outputs);
    });
}

STDMETHODIMP FISControl::get_Rules(BSTR* value) noexcept {
    return Com::Guard<_FISControl>(
        [&] { Com::Out(value) = Com::NewBstr(Definition::State().RulesText); });
}

STDMETHODIMP FISControl::put_Rules(BSTR value) noexcept {
    return Com::Guard<_FISControl>([&] {
        RequireDesignMode();
        Definition::State().RulesText = Com::View(value);
        PropertyChanged(DispatchIds::Rules);
    });
}

} // namespace Quorvane
