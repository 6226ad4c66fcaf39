// SPDX-License-Identifier: MIT
// StandInControl: a small COM object that records how a host treats it.
#include "tests/host/StandInControl.h"

#include <olectl.h>

#include <filesystem>

#include "com/FailedCall.h"

namespace Quorvane::Host {

const IID StandInEvents{
    0x5a1f0b52, 0x2f3e, 0x4c11, {0x9d, 0x02, 0x6b, 0x1e, 0x7c, 0x55, 0x01, 0xa4}};

namespace {

const CLSID StandInClassId{
    0x0d9a7c41, 0x8b1d, 0x4a57, {0xb3, 0xf0, 0x21, 0x90, 0x4e, 0x6d, 0x12, 0xc7}};

constexpr char16_t MakingTypes[] = u"make the type information";

Com::ComPtr<ICreateTypeInfo> AddType(ICreateTypeLib2& library, const Text& name, TYPEKIND kind,
                                     REFGUID guid) {
    Com::ComPtr<ICreateTypeInfo> type;
    Com::Check(library.CreateTypeInfo(const_cast<wchar_t*>(Com::Wide(name)), kind, type.Put()),
               MakingTypes);
    Com::Check(type->SetGuid(guid), MakingTypes);
    return type;
}

void AddEvent(ICreateTypeInfo& type, UINT index, DISPID id, std::vector<Text> names) {
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
    Com::Check(type.AddFuncDesc(index, &function), MakingTypes);
    std::vector<LPOLESTR> texts;
    for (Text& name : names)
        texts.push_back(const_cast<wchar_t*>(Com::Wide(name)));
    Com::Check(type.SetFuncAndParamNames(index, texts.data(), static_cast<UINT>(texts.size())),
               MakingTypes);
}

Com::ComPtr<ITypeInfo> LaidOut(ICreateTypeInfo& type) {
    Com::Check(type.LayOut(), MakingTypes);
    return Com::Query<ITypeInfo>(&type);
}

void WriteTypeLibrary(const std::filesystem::path& file) {
    const SYSKIND kind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    Com::ComPtr<ICreateTypeLib2> library;
    Com::Check(::CreateTypeLib2(kind, file.c_str(), library.Put()), MakingTypes);
    const auto events = AddType(*library.Get(), u"Events", TKIND_DISPATCH, StandInEvents);
    AddEvent(*events.Get(), 0, 1, {u"Started"});
    AddEvent(*events.Get(), 1, 7, {u"Changed", u"value"});
    const auto coclass = AddType(*library.Get(), u"StandIn", TKIND_COCLASS, StandInClassId);
    HREFTYPE reference = 0;
    Com::Check(coclass->AddRefTypeInfo(LaidOut(*events.Get()).Get(), &reference), MakingTypes);
    Com::Check(coclass->AddImplType(0, reference), MakingTypes);
    Com::Check(coclass->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE),
               MakingTypes);
    Com::Check(coclass->LayOut(), MakingTypes);
    Com::Check(library->SaveAllChanges(), MakingTypes);
}

} // namespace

Com::ComPtr<ITypeInfo> MakeStandInClassInfo() {
    const auto file = std::filesystem::temp_directory_path() / "StandInControl.tlb";
    WriteTypeLibrary(file);
    Com::ComPtr<ITypeLib> library;
    Com::ComPtr<ITypeInfo> info;
    Com::Check(::LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.Put()), MakingTypes);
    Com::Check(library->GetTypeInfoOfGuid(StandInClassId, info.Put()), MakingTypes);
    return info;
}

StandInControl::StandInControl(StandInSettings settings, std::vector<std::string>& calls)
    : settings_(settings), calls_(calls) {}

StandInControl::~StandInControl() {
    Record("destroyed");
}

void StandInControl::Raise(DISPID event, VARIANT* argument) {
    const std::vector<Com::ComPtr<IDispatch>> sinks = sinks_;
    DISPPARAMS arguments{argument, nullptr, argument ? 1u : 0u, 0};
    for (const Com::ComPtr<IDispatch>& sink : sinks)
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
    try {
        const Com::Variant event =
            Com::ChangeType(arguments->rgvarg[arguments->cArgs - 1], VT_I4, LOCALE_INVARIANT, 0);
        Raise(event.Get().lVal, arguments->cArgs == 2 ? &arguments->rgvarg[0] : nullptr);
    } catch (const Com::HresultError&) {
        return DISP_E_TYPEMISMATCH;
    }
    return S_OK;
}

HRESULT StandInControl::SetClientSite(IOleClientSite* site) noexcept {
    Record(site ? "SetClientSite" : "SetClientSite(null)");
    site_ = site;
    return S_OK;
}

HRESULT StandInControl::GetClientSite(IOleClientSite** site) noexcept {
    site_.CopyTo(site);
    return S_OK;
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
    Com::Variant caption;
    caption.Get().vt = VT_BSTR;
    if (SUCCEEDED(bag->Read(L"Caption", &caption.Get(), log)))
        Caption = Com::View(caption.Get().bstrVal);
    Com::Variant count;
    count.Get().vt = VT_I4;
    const HRESULT read = bag->Read(L"Count", &count.Get(), log);
    if (SUCCEEDED(read))
        Count = count.Get().lVal;
    return read == E_INVALIDARG ? S_OK : read;
}

HRESULT StandInControl::Save(IPropertyBag* bag, BOOL, BOOL) noexcept {
    Record("Save");
    Com::Variant caption{TextView(Caption)};
    Com::Variant count(Count);
    const HRESULT written = bag->Write(L"Caption", &caption.Get());
    return FAILED(written) ? written : bag->Write(L"Count", &count.Get());
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
    Com::ComPtr<IDispatch> dispatch;
    if (FAILED(sink->QueryInterface(StandInEvents, dispatch.PutVoid())))
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
    return Com::Guard([&] {
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
