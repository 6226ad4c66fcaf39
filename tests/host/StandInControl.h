// SPDX-License-Identifier: MIT
// StandInControl: a small COM object that records how a host treats it.
#pragma once

#include <ocidl.h>
#include <oleidl.h>

#include <functional>
#include <string>
#include <vector>

#include "com/ComObject.h"
#include "com/Scoped.h"
#include "host/container/EventSink.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// How the control is to behave.
struct StandInSettings {
    DWORD MiscStatus = OLEMISC_SETCLIENTSITEFIRST;
    HRESULT LoadResult = S_OK;
};

/// The type information of a class "StandIn" with the default source interface of the identifier
/// StandInEvents: Started() is event 1, Changed(value) is event 7.
extern const IID StandInEvents;
Com::ComPtr<ITypeInfo> MakeStandInClassInfo();

/// A control with one method, Raise(event, argument), dispatch identifier 1: it raises its event of
/// that dispatch identifier, with the argument if there is one. On loading it reads "Caption" (a
/// text) and "Count" (a 32-bit number, 0 where absent), on saving it writes both.
class StandInControl final
    : public Com::ComObject<IDispatch, IOleObject, IOleControl, IPersistPropertyBag,
                            IConnectionPointContainer, IConnectionPoint,
                            Com::Chain<IProvideClassInfo2, IProvideClassInfo>> {
  public:
    StandInControl(StandInSettings settings, std::vector<std::string>& calls);

    Text Caption;
    LONG Count = 0;

    /// Raises an event to all sinks.
    void Raise(DISPID event, VARIANT* argument = nullptr);

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT*,
                        EXCEPINFO*, UINT*) noexcept override;

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
    STDMETHODIMP Close(DWORD) noexcept override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Update() noexcept override { return S_OK; }
    STDMETHODIMP IsUpToDate() noexcept override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetExtent(DWORD, SIZEL*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetExtent(DWORD, SIZEL*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IAdviseSink*, DWORD*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMiscStatus(DWORD, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnMnemonic(MSG*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnAmbientPropertyChange(DISPID) noexcept override { return S_OK; }
    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override;

    // IPersistPropertyBag
    STDMETHODIMP GetClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InitNew() noexcept override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL, BOOL) noexcept override;

    // IConnectionPointContainer
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

    // IConnectionPoint
    STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections**) noexcept override { return E_NOTIMPL; }

    // IProvideClassInfo2
    STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) noexcept override;

  private:
    ~StandInControl() override;

    void Record(const std::string& call) { calls_.push_back(call); }

    StandInSettings settings_;
    std::vector<std::string>& calls_;
    Com::ComPtr<IOleClientSite> site_;
    std::vector<Com::ComPtr<IDispatch>> sinks_;
};

} // namespace Quorvane::Host
