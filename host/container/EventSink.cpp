// SPDX-License-Identifier: MIT
// EventSink: receives the events of a control by their names.
#include "host/container/EventSink.h"

#include "host/container/HResult.h"
#include "host/container/Variant.h"

namespace Quorvane::Host {

namespace {

constexpr wchar_t ReadingTypes[] = L"read the control's type information";

IID DefaultSourceId(IProvideClassInfo2& provider) {
    IID id{};
    if (FAILED(provider.GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id))) {
        return IID_NULL;
    }
    return id;
}

class Attributes {
  public:
    explicit Attributes(ITypeInfo& info) : info_(info) {
        Check(info.GetTypeAttr(&attributes_), ReadingTypes);
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() { info_.ReleaseTypeAttr(attributes_); }
    const TYPEATTR* operator->() const { return attributes_; }

  private:
    ITypeInfo& info_;
    TYPEATTR* attributes_ = nullptr;
};

ComPtr<ITypeInfo> InterfaceAt(ITypeInfo& coclass, UINT index) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> info;
    Check(coclass.GetRefTypeOfImplType(index, &reference), ReadingTypes);
    Check(coclass.GetRefTypeInfo(reference, info.Receive()), ReadingTypes);
    return info;
}

// The type information of the default source interface, with its identifier; null if none.
ComPtr<ITypeInfo> DefaultSource(ITypeInfo& coclass) {
    const Attributes attributes(coclass);
    for (UINT i = 0; i < attributes->cImplTypes; ++i) {
        INT flags = 0;
        Check(coclass.GetImplTypeFlags(i, &flags), ReadingTypes);
        constexpr INT Wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
        if ((flags & Wanted) == Wanted) {
            return InterfaceAt(coclass, i);
        }
    }
    return nullptr;
}

void ReadEventNames(ITypeInfo& source, std::map<DISPID, std::wstring>& events) {
    const Attributes attributes(source);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        // Some type libraries count the members of IDispatch without holding them.
        if (FAILED(source.GetFuncDesc(i, &function))) {
            continue;
        }
        const DISPID id = function->memid;
        source.ReleaseFuncDesc(function);
        Bstr name;
        Check(source.GetDocumentation(id, name.Receive(), nullptr, nullptr, nullptr), ReadingTypes);
        events.emplace(id, name.Text());
    }
}

} // namespace

SourceInterface FindSourceInterface(IUnknown* control) {
    SourceInterface source;
    const auto provider = Query<IProvideClassInfo>(control);
    if (!provider) {
        return source;
    }
    ComPtr<ITypeInfo> coclass;
    Check(provider->GetClassInfo(coclass.Receive()), ReadingTypes);
    const ComPtr<ITypeInfo> events = DefaultSource(*coclass.Get());
    if (!events) {
        return source;
    }
    source.Id = Attributes(*events.Get())->guid;
    ReadEventNames(*events.Get(), source.Events);
    const auto provider2 = Query<IProvideClassInfo2>(control);
    if (provider2 && DefaultSourceId(*provider2.Get()) != IID_NULL) {
        source.Id = DefaultSourceId(*provider2.Get());
    }
    return source;
}

class EventConnection::Sink final : public ComObject<IDispatch> {
  public:
    Sink(SourceInterface source, EventHandler handler)
        : source_(std::move(source)), handler_(std::move(handler)) {}

    // A control may keep its reference and fire once more after the connection has ended.
    void Silence() noexcept { isSilent_ = true; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        if (!count) {
            return E_POINTER;
        }
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
        if (!info) {
            return E_POINTER;
        }
        *info = nullptr;
        return DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                            DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                     EXCEPINFO*, UINT*) noexcept override {
        const auto event = source_.Events.find(id);
        if (event == source_.Events.end()) {
            return DISP_E_MEMBERNOTFOUND;
        }
        if (isSilent_) {
            return S_OK;
        }
        return Guard([&] {
            // The handler may disconnect, which releases this sink.
            const ComPtr<IUnknown> keepAlive(this);
            DISPPARAMS none{};
            handler_(event->second, arguments ? *arguments : none);
            return S_OK;
        });
    }

  protected:
    bool AnswersAsFirst(REFIID iid) const noexcept override { return iid == source_.Id; }

  private:
    ~Sink() override = default;

    SourceInterface source_;
    EventHandler handler_;
    bool isSilent_ = false;
};

EventConnection::EventConnection() noexcept = default;
EventConnection::~EventConnection() {
    Disconnect();
}

EventConnection::EventConnection(IUnknown* control, EventHandler handler) {
    SourceInterface source = FindSourceInterface(control);
    if (source.Id == IID_NULL) {
        return;
    }
    constexpr wchar_t Connecting[] = L"connect to the control's events";
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    Check(control->QueryInterface(__uuidof(IConnectionPointContainer), container.ReceiveVoid()),
          Connecting);
    Check(container->FindConnectionPoint(source.Id, point.Receive()), Connecting);
    sink_ = MakeCom<Sink>(std::move(source), std::move(handler));
    Check(point->Advise(sink_.Get(), &cookie_), Connecting);
    point_ = std::move(point);
}

EventConnection::EventConnection(EventConnection&& other) noexcept
    : point_(std::move(other.point_)), sink_(std::move(other.sink_)), cookie_(other.cookie_) {}

EventConnection& EventConnection::operator=(EventConnection&& other) noexcept {
    if (this != &other) {
        Disconnect();
        point_ = std::move(other.point_);
        sink_ = std::move(other.sink_);
        cookie_ = other.cookie_;
    }
    return *this;
}

void EventConnection::Disconnect() noexcept {
    if (sink_) {
        sink_->Silence();
    }
    if (point_) {
        point_->Unadvise(cookie_);
    }
    point_.Reset();
    sink_.Reset();
}

} // namespace Quorvane::Host
