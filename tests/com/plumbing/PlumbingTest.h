// SPDX-License-Identifier: MIT
// What the tests of the plumbing share: the check that no object is left, and small sinks.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <vector>

#include "com/Module.h"
#include "tests/com/plumbing/Trial.h"
#include "tests/com/support/InvokeOnly.h"

namespace Quorvane {

/// After each test no object of the plumbing may be left.
class PlumbingTest : public testing::Test {
  protected:
    void TearDown() override {
        EXPECT_EQ(Com::ModuleLockCount(), 0);
        ::SetErrorInfo(0, nullptr);
    }
};

/// A sink of TrialEvents that calls back into the test.
class TrialSink final : public InvokeOnly<Com::Chain<TrialEvents, IDispatch>> {
  public:
    explicit TrialSink(std::function<void()> handler = {}) : handler_(std::move(handler)) {}

    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT*,
                        EXCEPINFO*, UINT*) noexcept override {
        Events.push_back(member);
        Flags = flags;
        Arguments.clear();
        for (UINT index = 0; index < arguments->cArgs; ++index) {
            Arguments.emplace_back(arguments->rgvarg[index]);
        }
        if (handler_) {
            handler_();
        }
        return S_OK;
    }

    std::vector<DISPID> Events;
    WORD Flags = 0;
    std::vector<Com::Variant> Arguments;

  private:
    std::function<void()> handler_;
};

/// The connection point of an outgoing interface.
inline Com::ComPtr<IConnectionPoint> PointOf(IUnknown* object, REFIID source) {
    Com::ComPtr<IConnectionPoint> point;
    const auto container = Com::Query<IConnectionPointContainer>(object);
    EXPECT_TRUE(container);
    EXPECT_EQ(container->FindConnectionPoint(source, point.Put()), S_OK);
    return point;
}

/// Connects a sink and returns its cookie.
inline DWORD Advise(const Com::ComPtr<IConnectionPoint>& point, IUnknown* sink) {
    DWORD cookie = 0;
    EXPECT_EQ(point->Advise(sink, &cookie), S_OK);
    return cookie;
}

} // namespace Quorvane
