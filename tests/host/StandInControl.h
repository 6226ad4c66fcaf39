// SPDX-License-Identifier: MIT
// StandInControl: a small COM object that records how a host treats it.
#pragma once

#include "host/container/ComObject.h"
#include "host/container/EventSink.h"
#include "host/container/Variant.h"

#include <functional>
#include <string>
#include <vector>

#include <ocidl.h>
#include <oleidl.h>

namespace Quorvane::Host {

/// How the control is to behave.
struct StandInSettings {
    DWORD MiscStatus = OLEMISC_SETCLIENTSITEFIRST;
    HRESULT LoadResult = S_OK;
};

/// The type information of a class "StandIn" with the default source interface of the identifier
/// StandInEvents: Started() is event 1, Changed(value) is event 7.
extern const IID StandInEvents;
ComPtr<ITypeInfo> MakeStandInClassInfo();

/// A control with one method, Raise(event, argument), dispatch identifier 1: it raises its event of
/// that dispatch identifier, with the argument if there is one. On loading it reads "Caption" (a
/// text) and "Count" (a 32-bit number, 0 where absent), on saving it writes both.
class StandInControl final
    : public ComObject<IDispatch, IOleObject, IOleControl, IPersistPropertyBag,
                       IConnectionPointContainer, IConnectionPoint, IProvideClassInfo2> {
  public:
    StandInControl(StandInSettings settings, std::vector<std::string>& calls);

    std::wstring Caption;
    LONG Count = 0;

    /// Raises an event to all sinks.
    void Raise(DISPID event, VARIANT* argument = nullptr);

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        // IProvideClassInfo2 is derived from it.
        const bool isBase = iid == __uuidof(IProvideClassInfo);
        return ComObject::QueryInterface(isBase ? __uuidof(IProvideClassInfo2) : iid, object);
    }

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT*, EXCEPINFO*, UINT*) noexcept override;

    // IOleObject
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) noexcept override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) noexcept override;
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Close(DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DoVerb(LONG, LPMSG, IOleClientSite*, LONG, HWND,
                                     LPCRECT) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Update() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD, SIZEL*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD, SIZEL*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink*, DWORD*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD, DWORD* status) noexcept override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }

    // IOleControl
    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) noexcept override;

    // IPersistPropertyBag
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitNew() noexcept override;
    HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
    HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL, BOOL) noexcept override;

    // IConnectionPointContainer
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid,
                                                  IConnectionPoint** point) noexcept override;

    // IConnectionPoint
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) noexcept override;
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) noexcept override {
        return E_NOTIMPL;
    }

    // IProvideClassInfo2
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) noexcept override;

  private:
    ~StandInControl() override;

    void Record(const std::string& call) { calls_.push_back(call); }

    StandInSettings settings_;
    std::vector<std::string>& calls_;
    ComPtr<IOleClientSite> site_;
    std::vector<ComPtr<IDispatch>> sinks_;
};

} // namespace Quorvane::Host
