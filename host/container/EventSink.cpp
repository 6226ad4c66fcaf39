// SPDX-License-Identifier: MIT
// EventSink: receives the events of a control by their names.
#include "host/container/EventSink.h"

#include "com/FailedCall.h"
#include "com/Scoped.h"

namespace Quorvane::Host {
namespace {

constexpr char16_t ReadingTypes[] = u"read the control's type information";

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
        Com::Check(info.GetTypeAttr(&attributes_), ReadingTypes);
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() { info_.ReleaseTypeAttr(attributes_); }
    const TYPEATTR* operator->() const { return attributes_; }

  private:
    ITypeInfo& info_;
    TYPEATTR* attributes_ = nullptr;
};

Com::ComPtr<ITypeInfo> InterfaceAt(ITypeInfo& coclass, UINT index) {
    HREFTYPE reference = 0;
    Com::ComPtr<ITypeInfo> info;
    Com::Check(coclass.GetRefTypeOfImplType(index, &reference), ReadingTypes);
    Com::Check(coclass.GetRefTypeInfo(reference, info.Put()), ReadingTypes);
    return info;
}

// The type information of the default source interface, with its identifier; null if none.
Com::ComPtr<ITypeInfo> DefaultSource(ITypeInfo& coclass) {
    const Attributes attributes(coclass);
    for (UINT i = 0; i < attributes->cImplTypes; ++i) {
        INT flags = 0;
        Com::Check(coclass.GetImplTypeFlags(i, &flags), ReadingTypes);
        constexpr INT Wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
        if ((flags & Wanted) == Wanted) {
            return InterfaceAt(coclass, i);
        }
    }
    return nullptr;
}

void ReadEventNames(ITypeInfo& source, std::map<DISPID, Text>& events) {
    const Attributes attributes(source);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        // Some type libraries count the members of IDispatch without holding them.
        if (FAILED(source.GetFuncDesc(i, &function))) {
            continue;
        }
        const DISPID id = function->memid;
        source.ReleaseFuncDesc(function);
        Com::Bstr name;
        Com::Check(source.GetDocumentation(id, name.Put(), nullptr, nullptr, nullptr),
                   ReadingTypes);
        events.emplace(id, Text(name.Characters()));
    }
}

} // namespace

SourceInterface FindSourceInterface(IUnknown* control) {
    SourceInterface source;
    const auto provider = Com::Query<IProvideClassInfo>(control);
    if (!provider) {
        return source;
    }
    Com::ComPtr<ITypeInfo> coclass;
    Com::Check(provider->GetClassInfo(coclass.Put()), ReadingTypes);
    const Com::ComPtr<ITypeInfo> events = DefaultSource(*coclass.Get());
    if (!events) {
        return source;
    }
    source.Id = Attributes(*events.Get())->guid;
    ReadEventNames(*events.Get(), source.Events);
    const auto provider2 = Com::Query<IProvideClassInfo2>(control);
    if (provider2 && DefaultSourceId(*provider2.Get()) != IID_NULL) {
        source.Id = DefaultSourceId(*provider2.Get());
    }
    return source;
}

class EventConnection::Sink final : public Com::ComObject<IDispatch> {
  public:
    Sink(SourceInterface source, EventHandler handler)
        : source_(std::move(source)), handler_(std::move(handler)) {}

    // A control may keep its reference and fire once more after the connection has ended.
    void Silence() noexcept { isSilent_ = true; }

    /// The event interface, too, which is known at run time only.
    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        return ComObject::QueryInterface(iid == source_.Id ? __uuidof(IDispatch) : iid, object);
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        if (!count) {
            return E_POINTER;
        }
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
        if (!info) {
            return E_POINTER;
        }
        *info = nullptr;
        return DISP_E_BADINDEX;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        const auto event = source_.Events.find(id);
        if (event == source_.Events.end()) {
            return DISP_E_MEMBERNOTFOUND;
        }
        if (isSilent_) {
            return S_OK;
        }
        return Com::Guard<IDispatch>([&] {
            // The handler may disconnect, which releases this sink.
            const Com::KeepAlive keep(this);
            DISPPARAMS none{};
            handler_(event->second, arguments ? *arguments : none);
        });
    }

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
    constexpr char16_t Connecting[] = u"connect to the control's events";
    Com::ComPtr<IConnectionPointContainer> container;
    Com::ComPtr<IConnectionPoint> point;
    Com::Check(control->QueryInterface(__uuidof(IConnectionPointContainer), container.PutVoid()),
               Connecting);
    Com::Check(container->FindConnectionPoint(source.Id, point.Put()), Connecting);
    sink_ = Com::MakeObject<Sink>(std::move(source), std::move(handler));
    Com::Check(point->Advise(sink_.Get(), &cookie_), Connecting);
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
