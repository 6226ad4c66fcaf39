// SPDX-License-Identifier: MIT
// StandInControl: a small COM object that records how a host treats it.
#include "tests/host/StandInControl.h"

#include "host/container/HResult.h"

#include <filesystem>

#include <olectl.h>

namespace Quorvane::Host {

const IID StandInEvents{
    0x5a1f0b52, 0x2f3e, 0x4c11, {0x9d, 0x02, 0x6b, 0x1e, 0x7c, 0x55, 0x01, 0xa4}};

namespace {

const CLSID StandInClassId{
    0x0d9a7c41, 0x8b1d, 0x4a57, {0xb3, 0xf0, 0x21, 0x90, 0x4e, 0x6d, 0x12, 0xc7}};

constexpr wchar_t MakingTypes[] = L"make the type information";

ComPtr<ICreateTypeInfo> AddType(ICreateTypeLib2& library, const wchar_t* name, TYPEKIND kind,
                                REFGUID guid) {
    std::wstring text(name);
    ComPtr<ICreateTypeInfo> type;
    Check(library.CreateTypeInfo(text.data(), kind, type.Receive()), MakingTypes);
    Check(type->SetGuid(guid), MakingTypes);
    return type;
}

void AddEvent(ICreateTypeInfo& type, UINT index, DISPID id, std::vector<std::wstring> names) {
    ELEMDESC parameter{};
    parameter.tdesc.vt = VT_VARIANT;
    FUNCDESC function{};
    function.memid = id;
    function.funckind = FUNC_DISPATCH;
    function.invkind = INVOKE_FUNC;
    function.callconv = CC_STDCALL;
    function.cParams = static_cast<SHORT>(names.size() - 1);
    function.lprgelemdescParam = &parameter;
    function.elemdescFunc.tdesc.vt = VT_VOID;
    Check(type.AddFuncDesc(index, &function), MakingTypes);
    std::vector<LPOLESTR> texts;
    for (std::wstring& name : names)
        texts.push_back(name.data());
    Check(type.SetFuncAndParamNames(index, texts.data(), static_cast<UINT>(texts.size())),
          MakingTypes);
}

ComPtr<ITypeInfo> LaidOut(ICreateTypeInfo& type) {
    Check(type.LayOut(), MakingTypes);
    return Query<ITypeInfo>(&type);
}

void WriteTypeLibrary(const std::filesystem::path& file) {
    const SYSKIND kind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    ComPtr<ICreateTypeLib2> library;
    Check(CreateTypeLib2(kind, file.c_str(), library.Receive()), MakingTypes);
    const auto events = AddType(*library.Get(), L"Events", TKIND_DISPATCH, StandInEvents);
    AddEvent(*events.Get(), 0, 1, {L"Started"});
    AddEvent(*events.Get(), 1, 7, {L"Changed", L"value"});
    const auto coclass = AddType(*library.Get(), L"StandIn", TKIND_COCLASS, StandInClassId);
    HREFTYPE reference = 0;
    Check(coclass->AddRefTypeInfo(LaidOut(*events.Get()).Get(), &reference), MakingTypes);
    Check(coclass->AddImplType(0, reference), MakingTypes);
    Check(coclass->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE), MakingTypes);
    Check(coclass->LayOut(), MakingTypes);
    Check(library->SaveAllChanges(), MakingTypes);
}

} // namespace

ComPtr<ITypeInfo> MakeStandInClassInfo() {
    const auto file = std::filesystem::temp_directory_path() / "StandInControl.tlb";
    WriteTypeLibrary(file);
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> info;
    Check(LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.Receive()), MakingTypes);
    Check(library->GetTypeInfoOfGuid(StandInClassId, info.Receive()), MakingTypes);
    return info;
}

StandInControl::StandInControl(StandInSettings settings, std::vector<std::string>& calls)
    : settings_(settings), calls_(calls) {}

StandInControl::~StandInControl() {
    Record("destroyed");
}

void StandInControl::Raise(DISPID event, VARIANT* argument) {
    const std::vector<ComPtr<IDispatch>> sinks = sinks_;
    DISPPARAMS arguments{argument, nullptr, argument ? 1u : 0u, 0};
    for (const ComPtr<IDispatch>& sink : sinks)
        if (sink)
            sink->Invoke(event, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr, nullptr,
                         nullptr);
}

HRESULT StandInControl::GetTypeInfoCount(UINT* count) noexcept {
    *count = 0;
    return S_OK;
}

HRESULT StandInControl::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT StandInControl::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                      DISPID* ids) noexcept {
    ids[0] = count == 1 && _wcsicmp(names[0], L"Raise") == 0 ? 1 : DISPID_UNKNOWN;
    return ids[0] == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT StandInControl::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT*,
                               EXCEPINFO*, UINT*) noexcept {
    if (id != 1 || (flags & DISPATCH_METHOD) == 0)
        return DISP_E_MEMBERNOTFOUND;
    if (arguments->cArgs < 1 || arguments->cArgs > 2)
        return DISP_E_BADPARAMCOUNT;
    Variant event;
    if (FAILED(event.Copy(arguments->rgvarg[arguments->cArgs - 1])) ||
        FAILED(event.ChangeType(VT_I4, LOCALE_INVARIANT)))
        return DISP_E_TYPEMISMATCH;
    Raise(event.lVal, arguments->cArgs == 2 ? &arguments->rgvarg[0] : nullptr);
    return S_OK;
}

HRESULT StandInControl::SetClientSite(IOleClientSite* site) noexcept {
    Record(site ? "SetClientSite" : "SetClientSite(null)");
    site_ = site;
    return S_OK;
}

HRESULT StandInControl::GetClientSite(IOleClientSite** site) noexcept {
    return site_.CopyTo(site);
}

HRESULT StandInControl::Close(DWORD) noexcept {
    Record("Close");
    return S_OK;
}

HRESULT StandInControl::GetMiscStatus(DWORD, DWORD* status) noexcept {
    *status = settings_.MiscStatus;
    return S_OK;
}

HRESULT StandInControl::FreezeEvents(BOOL freeze) noexcept {
    Record(freeze ? "FreezeEvents" : "ThawEvents");
    return S_OK;
}

HRESULT StandInControl::InitNew() noexcept {
    Record("InitNew");
    return S_OK;
}

HRESULT StandInControl::Load(IPropertyBag* bag, IErrorLog* log) noexcept {
    Record("Load");
    if (FAILED(settings_.LoadResult))
        return settings_.LoadResult;
    Variant caption;
    caption.vt = VT_BSTR;
    if (SUCCEEDED(bag->Read(L"Caption", &caption, log)))
        Caption = ViewBstr(caption.bstrVal);
    Variant count;
    count.vt = VT_I4;
    const HRESULT read = bag->Read(L"Count", &count, log);
    if (SUCCEEDED(read))
        Count = count.lVal;
    return read == E_INVALIDARG ? S_OK : read;
}

HRESULT StandInControl::Save(IPropertyBag* bag, BOOL, BOOL) noexcept {
    Record("Save");
    Variant caption{std::wstring_view(Caption)};
    Variant count(Count);
    const HRESULT written = bag->Write(L"Caption", &caption);
    return FAILED(written) ? written : bag->Write(L"Count", &count);
}

HRESULT StandInControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
    *point = nullptr;
    if (iid != StandInEvents)
        return CONNECT_E_NOCONNECTION;
    AddRef();
    *point = this;
    return S_OK;
}

HRESULT StandInControl::GetConnectionInterface(IID* iid) noexcept {
    *iid = StandInEvents;
    return S_OK;
}

HRESULT StandInControl::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    Record("Advise");
    ComPtr<IDispatch> dispatch;
    if (FAILED(sink->QueryInterface(StandInEvents, dispatch.ReceiveVoid())))
        return CONNECT_E_CANNOTCONNECT;
    sinks_.push_back(std::move(dispatch));
    *cookie = static_cast<DWORD>(sinks_.size());
    return S_OK;
}

HRESULT StandInControl::Unadvise(DWORD cookie) noexcept {
    Record("Unadvise");
    if (cookie == 0 || cookie > sinks_.size() || !sinks_[cookie - 1])
        return CONNECT_E_NOCONNECTION;
    sinks_[cookie - 1].Reset();
    return S_OK;
}

HRESULT StandInControl::GetClassInfo(ITypeInfo** info) noexcept {
    return Guard([&] {
        *info = MakeStandInClassInfo().Detach();
        return S_OK;
    });
}

HRESULT StandInControl::GetGUID(DWORD kind, GUID* guid) noexcept {
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID)
        return E_INVALIDARG;
    *guid = StandInEvents;
    return S_OK;
}

} // namespace Quorvane::Host
