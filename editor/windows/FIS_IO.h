// SPDX-License-Identifier: MIT
// The property page class `FIS_IO` as frames see it.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <vector>

#include "com/ComObject.h"
#include "com/Dispatch.h"
#include "editor/windows/PageView.h"
#include "idl/QuorvaneAxEditor.h"

namespace Quorvane::Editor {

/// The page as a COM object: the frame's calls, each for its view, and the controls that the frame
/// has selected.
class FIS_IO final
    : public Com::ComObject<Com::DualDispatch<_FIS_IO>, Com::Chain<IPropertyPage2, IPropertyPage>> {
  public:
    explicit FIS_IO(IUnknown* outer);

    // IPropertyPage
    STDMETHODIMP SetPageSite(IPropertyPageSite* site) noexcept override;
    STDMETHODIMP Activate(HWND parent, LPCRECT position, BOOL modal) noexcept override;
    STDMETHODIMP Deactivate() noexcept override;
    STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) noexcept override;
    STDMETHODIMP SetObjects(ULONG count, IUnknown** objects) noexcept override;
    STDMETHODIMP Show(UINT command) noexcept override;
    STDMETHODIMP Move(LPCRECT position) noexcept override;
    STDMETHODIMP IsPageDirty() noexcept override;
    STDMETHODIMP Apply() noexcept override;
    STDMETHODIMP Help(LPCOLESTR helpFolder) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG* message) noexcept override;

    // IPropertyPage2
    STDMETHODIMP EditProperty(DISPID property) noexcept override;

  protected:
    /// Frames may forget to say goodbye: the windows go while the page is whole.
    void FinalRelease() noexcept override;

  private:
    void ReportChanged() noexcept;

    /// Applies the edits to the first control. False where the page has refused; throws
    /// HresultError with the control's error where the control has.
    bool ApplyToControl();

    Com::ComPtr<IPropertyPageSite> site_;
    /// The first is the one that the edits are applied to.
    std::vector<Com::ComPtr<IUnknown>> selectedControls_;
    PageView view_;
};

} // namespace Quorvane::Editor
