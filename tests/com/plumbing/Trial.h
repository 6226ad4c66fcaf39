// SPDX-License-Identifier: MIT
// A small object that exercises every path of the COM plumbing.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>

#include "Trial_idl.h"
#include "com/ClassInfo.h"
#include "com/ComObject.h"
#include "com/ConnectionPoint.h"
#include "com/Dispatch.h"
#include "com/Scoped.h"

namespace Quorvane {

/// A keyed store whose default member is Item.
class TrialBag final : public Com::ComObject<Com::DualDispatch<IBag>> {
  public:
    STDMETHODIMP get_Item(BSTR key, VARIANT* item) noexcept override;
    STDMETHODIMP put_Item(BSTR key, VARIANT item) noexcept override;
    STDMETHODIMP putref_Item(BSTR key, IDispatch* item) noexcept override;

    std::map<Text, Com::Variant> Items;
};

/// What the end of a Trial does and notes, for tests that outlive it.
struct TrialEnd {
    int FinalReleases = 0;
    int Destructions = 0;
};

class Trial final : public Com::ComObject<Com::DualDispatch<ITrial>, Com::SupportsErrorInfo<ITrial>,
                                          Com::ConnectionPoints<TrialEvents, IPropertyNotifySink>,
                                          Com::ProvideClassInfo<::TrialClass, TrialEvents>,
                                          Com::Chain<IPersistStreamInit, IPersist>> {
  public:
    explicit Trial(IUnknown* outer = nullptr, TrialEnd* end = nullptr);
    ~Trial() override;

    // ITrial
    STDMETHODIMP get_Number(LONG* value) noexcept override;
    STDMETHODIMP put_Number(LONG value) noexcept override;
    STDMETHODIMP get_Colour(OLE_COLOR* value) noexcept override;
    STDMETHODIMP put_Colour(OLE_COLOR value) noexcept override;
    STDMETHODIMP get_Bag(IBag** value) noexcept override;
    STDMETHODIMP putref_Bag(IBag* value) noexcept override;
    STDMETHODIMP get_Nothing(IDispatch** value) noexcept override;
    STDMETHODIMP Advance(BSTR* text, LONG* number) noexcept override;
    STDMETHODIMP Fail(LONG number, BSTR source, BSTR description) noexcept override;
    STDMETHODIMP Happen() noexcept override;

    // IPersistStreamInit
    STDMETHODIMP GetClassID(CLSID* clsid) noexcept override;
    STDMETHODIMP IsDirty() noexcept override { return S_FALSE; }
    STDMETHODIMP Load(IStream*) noexcept override { return S_OK; }
    STDMETHODIMP Save(IStream*, BOOL) noexcept override { return S_OK; }
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InitNew() noexcept override { return S_OK; }

    /// Tells every IPropertyNotifySink.
    void Changed(DISPID property);

    LONG Number = 0;
    OLE_COLOR Colour = 0;
    Com::ComPtr<TrialBag> Bag;

  protected:
    void FinalRelease() noexcept override;

  private:
    TrialEnd* end_;
};

/// Whether the trial module claims to hold state that must not be unloaded.
extern bool TrialHoldsState;

/// How often the module was told to give up its state.
extern int TrialStatesGivenUp;

} // namespace Quorvane
