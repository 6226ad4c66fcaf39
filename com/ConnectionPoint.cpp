// SPDX-License-Identifier: MIT
// The sinks of one outgoing interface, and the raising of events.
#include "com/ConnectionPoint.h"

#include <algorithm>

#include "com/ExceptionInfo.h"

namespace Quorvane::Com {

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
    return Guard<IConnectionPoint>([&] { Out(iid) = iid_; });
}

STDMETHODIMP
ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
    return Guard<IConnectionPoint>([&] {
        Out(container) = nullptr;
        if (!container_) {
            throw HresultError(E_UNEXPECTED);
        }
        ComPtr<IConnectionPointContainer>(container_).CopyTo(container);
    });
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    return Guard<IConnectionPoint>([&] {
        Out(cookie) = 0;
        if (!sink) {
            throw HresultError(E_POINTER);
        }
        ComPtr<IUnknown> target;
        // Some hosts' sinks answer to IDispatch only, which is all that raising an event needs.
        if (FAILED(sink->QueryInterface(iid_, target.PutVoid())) &&
            (sinks_ != Sinks::OfDispatch ||
             FAILED(sink->QueryInterface(__uuidof(IDispatch), target.PutVoid())))) {
            throw HresultError(CONNECT_E_CANNOTCONNECT);
        }
        if (!container_) {
            throw HresultError(CONNECT_E_CANNOTCONNECT);
        }
        connections_.push_back({std::move(target), lastCookie_ + 1});
        *cookie = ++lastCookie_;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    const auto found = std::ranges::find(connections_, cookie, &OwnedConnection::Cookie);
    if (found == connections_.end()) {
        return CONNECT_E_NOCONNECTION;
    }
    // The sink goes last: releasing it may call back.
    const OwnedConnection removed = std::move(*found);
    connections_.erase(found);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** enumerator) noexcept {
    return Guard<IConnectionPoint>([&] {
        Out(enumerator) = nullptr;
        *enumerator = MakeObject<Enumerator<IEnumConnections, CONNECTDATA>>(connections_).Detach();
    });
}

void ConnectionPoint::Disconnect() noexcept {
    container_ = nullptr;
    const std::vector<OwnedConnection> sinks = std::exchange(connections_, {});
}

const OwnedConnection* ConnectionPoint::ConnectionAfter(DWORD cookie) const noexcept {
    const auto next = std::ranges::upper_bound(connections_, cookie, {}, &OwnedConnection::Cookie);
    return next == connections_.end() ? nullptr : &*next;
}

void RaiseEvent(IDispatch& sink, DISPID event, std::initializer_list<Variant> arguments) {
    // Dispatch takes its arguments last first.
    std::vector<Variant> reversed(std::rbegin(arguments), std::rend(arguments));
    std::vector<VARIANT> values;
    values.reserve(reversed.size());
    for (const Variant& argument : reversed) {
        values.push_back(argument.Get());
    }
    DISPPARAMS parameters{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
    Variant result;
    ExceptionInfo exception;
    UINT badArgument = 0;
    sink.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, result.Put(),
                exception.Get(), &badArgument);
}

} // namespace Quorvane::Com
