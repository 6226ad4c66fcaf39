// SPDX-License-Identifier: MIT
// EventSink: receives the events of a control by their names.
#pragma once

#include <ocidl.h>

#include <functional>
#include <map>

#include "com/ComObject.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// Called for each event with its name and its arguments as the control passed them (last first).
/// It must not throw.
using EventHandler = std::function<void(const Text& event, DISPPARAMS& arguments)>;

/// A control's default event interface: its identifier and the names of its events.
struct SourceInterface {
    IID Id{};
    std::map<DISPID, Text> Events;
};

/// What the type information of `control` says of its default event interface; one with a null
/// identifier if it has none. Throws Com::HresultError if the type information cannot be read.
SourceInterface FindSourceInterface(IUnknown* control);

/// Keeps a sink connected to a control, until it is disconnected or destroyed.
class EventConnection {
  public:
    EventConnection() noexcept;

    /// Connects `handler` to the default event interface of `control`; a control without one leaves
    /// the connection empty. Throws Com::HresultError.
    EventConnection(IUnknown* control, EventHandler handler);
    EventConnection(EventConnection&& other) noexcept;
    EventConnection& operator=(EventConnection&& other) noexcept;
    ~EventConnection();

    bool IsConnected() const { return point_ != nullptr; }

    /// Ends the connection. Safe inside a handler; no event arrives afterwards.
    void Disconnect() noexcept;

  private:
    class Sink;

    Com::ComPtr<IConnectionPoint> point_;
    Com::ComPtr<Sink> sink_;
    DWORD cookie_ = 0;
};

} // namespace Quorvane::Host
