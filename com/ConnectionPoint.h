// SPDX-License-Identifier: MIT
// Connection points: the sinks of a host, and the calls to them.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <array>
#include <concepts>
#include <initializer_list>
#include <utility>
#include <vector>

#include "com/ComObject.h"
#include "com/Enumerator.h"

namespace Quorvane::Com {

/// The sinks of one outgoing interface. It is an object of its own, with its own identity; once
/// its container has gone it has no sinks and takes none.
class ConnectionPoint final : public ComObject<IConnectionPoint> {
  public:
    /// What a sink must answer to: the outgoing interface, or any IDispatch for a dispinterface.
    enum class Sinks { OfInterface, OfDispatch };

    /// `container` is not counted; the container calls Disconnect before it goes.
    ConnectionPoint(REFIID iid, Sinks sinks, IConnectionPointContainer* container) noexcept
        : iid_(iid), sinks_(sinks), container_(container) {}

    // IConnectionPoint
    STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
    STDMETHODIMP
    GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** enumerator) noexcept override;

    const IID& InterfaceId() const noexcept { return iid_; }

    /// Forgets the container and releases every sink.
    void Disconnect() noexcept;

    /// Calls `call(I&)` with every sink there is now, in the order in which they came. I is the
    /// outgoing interface, which each has answered to, or IDispatch for a dispinterface. A sink may
    /// unadvise itself or others, or release the container, meanwhile; one that has been unadvised
    /// is not called any more, one that came during the call not yet.
    template <class I, class F>
    void ForEach(F&& call) {
        const ComPtr<ConnectionPoint> self(this);
        const DWORD newest = lastCookie_;
        DWORD done = 0;
        while (const OwnedConnection* const next = ConnectionAfter(done)) {
            if (next->Cookie > newest) {
                return;
            }
            done = next->Cookie;
            const ComPtr<IUnknown> sink = next->Sink;
            // NOLINTNEXTLINE(cppcoreguidelines-pro-type-static-cast-downcast): Advise asked for it
            call(static_cast<I&>(*sink));
        }
    }

  private:
    /// The first connection that came after the one with a cookie; null where there is none.
    const OwnedConnection* ConnectionAfter(DWORD cookie) const noexcept;

    IID iid_;
    Sinks sinks_;
    IConnectionPointContainer* container_;
    /// In the order of their cookies.
    std::vector<OwnedConnection> connections_;
    /// Cookies count upwards and are never used twice.
    DWORD lastCookie_ = 0;
};

/// Calls an event of a dispinterface. What the sink answers is its own affair: nothing is
/// returned. `arguments` are in their natural order.
void RaiseEvent(IDispatch& sink, DISPID event, std::initializer_list<Variant> arguments);

/// IConnectionPointContainer with one point per outgoing interface; the first is the default
/// source of events.
template <class... Sources>
class ConnectionPoints : public IConnectionPointContainer {
  public:
    using Answers = InterfaceList<IConnectionPointContainer>;

    ConnectionPoints(const ConnectionPoints&) = delete;
    ConnectionPoints& operator=(const ConnectionPoints&) = delete;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** enumerator) noexcept override {
        return Guard<IConnectionPointContainer>([&] {
            Out(enumerator) = nullptr;
            std::vector<ComPtr<IConnectionPoint>> points;
            for (const auto& point : points_) {
                points.push_back(point);
            }
            *enumerator =
                MakeObject<Enumerator<IEnumConnectionPoints, IConnectionPoint*>>(std::move(points))
                    .Detach();
        });
    }

    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** result) noexcept override {
        return Guard<IConnectionPointContainer>([&] {
            Out(result) = nullptr;
            for (const auto& point : points_) {
                if (point->InterfaceId() == iid) {
                    ComPtr<IConnectionPoint>(point).CopyTo(result);
                    return S_OK;
                }
            }
            return CONNECT_E_NOCONNECTION;
        });
    }

    /// IOleControl::FreezeEvents: while more freezes than thaws have come, no event is raised.
    void FreezeEvents(bool freeze) noexcept {
        if (freeze) {
            ++freezes_;
        } else if (freezes_ > 0) {
            --freezes_;
        }
    }

  protected:
    ConnectionPoints()
        : points_{MakeObject<ConnectionPoint>(__uuidof(Sources), SinksOf<Sources>, this)...} {}

    ~ConnectionPoints() {
        for (const auto& point : points_) {
            point->Disconnect();
        }
    }

    /// Raises an event of the dispinterface `Source` to every sink; nothing while events are
    /// frozen. The handlers may release this object: whoever uses it afterwards holds a KeepAlive.
    template <class Source>
    void Raise(DISPID event, std::initializer_list<Variant> arguments = {}) {
        if (freezes_ == 0) {
            Point<Source>().template ForEach<IDispatch>(
                [&](IDispatch& sink) { RaiseEvent(sink, event, arguments); });
        }
    }

    /// Calls `call(Source&)` for every sink of a custom interface such as IPropertyNotifySink.
    template <class Source, class F>
    void Notify(F&& call) {
        Point<Source>().template ForEach<Source>(call);
    }

  private:
    template <class Source>
    static constexpr auto SinksOf =
        std::derived_from<Source, IDispatch> ? ConnectionPoint::Sinks::OfDispatch
                                             : ConnectionPoint::Sinks::OfInterface;

    template <class Source>
    ConnectionPoint& Point() noexcept {
        constexpr bool matches[] = {std::is_same_v<Source, Sources>...};
        std::size_t index = 0;
        while (!matches[index]) {
            ++index;
        }
        return *points_[index];
    }

    std::array<ComPtr<ConnectionPoint>, sizeof...(Sources)> points_;
    int freezes_ = 0;
};

} // namespace Quorvane::Com
