// SPDX-License-Identifier: MIT
// The control as part of a host's extender object.
#include <windows.h>

#include <olectl.h>

#include <gtest/gtest.h>

#include "com/ErrorBoundary.h"
#include "tests/windows/support/Form.h"

namespace Quorvane {
namespace {

/// What a form wraps round a control to give it a name and a place.
class Extender final : public IUnknown {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override {
        if (iid == __uuidof(IUnknown)) {
            *result = static_cast<IUnknown*>(this);
            AddRef();
            return S_OK;
        }
        return inner_ ? inner_->QueryInterface(iid, result) : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return --count_; }

    void Hold(Com::ComPtr<IUnknown> inner) { inner_ = std::move(inner); }
    ULONG References() const { return count_; }

  private:
    ULONG count_ = 0;
    Com::ComPtr<IUnknown> inner_;
};

TEST(Aggregation, GivesEveryInterfaceTheExtendersIdentity) {
    Extender extender;
    extender.Hold(NewControl(&extender));
    for (const IID& iid : {__uuidof(_FISControl), __uuidof(IOleObject), __uuidof(IViewObjectEx),
                           __uuidof(IOleInPlaceActiveObject), __uuidof(IPersistStorage)}) {
        Com::ComPtr<IUnknown> found;
        ASSERT_EQ(extender.QueryInterface(iid, found.PutVoid()), S_OK);
        EXPECT_TRUE(Com::IsSameObject(found.Get(), &extender));
    }
    EXPECT_EQ(extender.References(), 0U);
}

TEST(Aggregation, ActivatesAndIsReleasedLikeAnyOther) {
    Extender extender;
    extender.Hold(NewControl(&extender));
    {
        Form form;
        Com::ComPtr<_FISControl> control;
        ASSERT_EQ(extender.QueryInterface(__uuidof(_FISControl), control.PutVoid()), S_OK);
        form.Place(std::move(control), Start::FromEmptyBag);
        ASSERT_EQ(form.DoVerb(OLEIVERB_UIACTIVATE), S_OK);
        EXPECT_NE(form.Surface(), nullptr);
        EXPECT_TRUE(
            Com::IsSameObject(form.TheSite().FrameWindow()->ActiveObject().Get(), &extender));
        EXPECT_EQ(form.Control()->Fire(), S_OK);
    }
    EXPECT_EQ(extender.References(), 0U);
    extender.Hold(nullptr);
}

TEST(Aggregation, NeverTouchesAnExtenderWhileItEndsActive) {
    Form form;
    Extender extender;
    extender.Hold(NewControl(&extender));
    {
        Com::ComPtr<IOleObject> object;
        ASSERT_EQ(extender.QueryInterface(__uuidof(IOleObject), object.PutVoid()), S_OK);
        object->SetClientSite(&form.TheSite());
        ASSERT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &form.TheSite(), 0,
                                 form.Window(), nullptr),
                  S_OK);
    }
    form.Calls().Clear();
    extender.Hold(nullptr);
    EXPECT_EQ(form.Calls().All(), std::vector<std::string>{});
    EXPECT_EQ(::GetWindow(form.Window(), GW_CHILD), nullptr);
}

} // namespace
} // namespace Quorvane
