// SPDX-License-Identifier: MIT
// Sinks of the control's events and property notifications.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <functional>
#include <vector>

#include "com/ComObject.h"
#include "idl/QuorvaneAxEditor.h"
#include "tests/com/support/InvokeOnly.h"

namespace Quorvane {

/// A sink of InferComplate that answers to IDispatch only, as those of scripts do.
class EventSink final : public InvokeOnly<> {
  public:
    /// `handler` runs within each event.
    explicit EventSink(std::function<void()> handler = {}) : Handler(std::move(handler)) {}

    std::function<void()> Handler;
    /// How often the event has been raised.
    int Count = 0;

    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT*,
                        EXCEPINFO*, UINT*) noexcept override;
};

/// Notes every property that changes.
class NotifySink final : public Com::ComObject<IPropertyNotifySink> {
  public:
    std::vector<DISPID> Changed;

    STDMETHODIMP OnChanged(DISPID property) noexcept override;
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }
};

/// A sink's connection to a control; it ends with the object, unless the control has ended it.
class Connection {
  public:
    Connection(IUnknown* control, REFIID events, IUnknown* sink);
    Connection(IUnknown* control, EventSink* sink)
        : Connection(control, __uuidof(__FISControl), sink) {}
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { End(); }

    /// Unadvises; a second call does nothing.
    void End();

  private:
    Com::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace Quorvane
