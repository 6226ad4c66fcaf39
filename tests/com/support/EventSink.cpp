// SPDX-License-Identifier: MIT
// Sinks of the control's events and property notifications.
#include "tests/com/support/EventSink.h"

#include <gtest/gtest.h>

namespace Quorvane {

STDMETHODIMP EventSink::Invoke(DISPID event, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                               VARIANT*, EXCEPINFO*, UINT*) noexcept {
    EXPECT_EQ(event, 1);
    EXPECT_EQ(flags, DISPATCH_METHOD);
    EXPECT_EQ(arguments->cArgs, 0u);
    ++Count;
    // Held, as the handler may drop or replace itself and its sink.
    const Com::ComPtr<EventSink> alive(this);
    if (const auto handler = Handler) {
        handler();
    }
    return S_OK;
}

STDMETHODIMP NotifySink::OnChanged(DISPID property) noexcept {
    Changed.push_back(property);
    return S_OK;
}

Connection::Connection(IUnknown* control, REFIID events, IUnknown* sink) {
    const auto container = Com::Query<IConnectionPointContainer>(control);
    EXPECT_TRUE(container);
    EXPECT_EQ(container->FindConnectionPoint(events, point_.Put()), S_OK);
    EXPECT_EQ(point_->Advise(sink, &cookie_), S_OK);
}

void Connection::End() {
    if (point_) {
        // A control that has gone has ended its connections itself.
        point_->Unadvise(cookie_);
        point_.Reset();
    }
}

} // namespace Quorvane
