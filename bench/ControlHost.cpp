// SPDX-License-Identifier: MIT
// A host of the built control, which knows it through COM alone.
#include "bench/ControlHost.h"

#include <map>

#include "com/Scoped.h"
#include "model/TransformText.h"
#include "tests/com/support/ControlModule.h"

namespace Quorvane::Bench {
namespace {

/// The class of the platform's dictionary.
constexpr GUID PlatformDictionary = {
    0xee09b103, 0x97e0, 0x11cf, {0x97, 0x8f, 0x00, 0xa0, 0x24, 0x63, 0xe0, 0x6f}};
constexpr int TextCompare = 1;

Com::ComPtr<IClassFactory> ControlClass() {
    // Never unloaded: it keeps the system as long as the program runs.
    HMODULE const module = ::LoadLibraryW(Com::Wide(ControlModulePath()));
    if (!module) {
        throw Com::HresultError(HRESULT_FROM_WIN32(::GetLastError()));
    }
    using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto getClassObject = reinterpret_cast<Function>(
        reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
    Com::ComPtr<IClassFactory> factory;
    Com::Check(getClassObject(__uuidof(::FISControl), __uuidof(IClassFactory), factory.PutVoid()));
    return factory;
}

/// The properties that a form has kept of a control.
class Bag final : public Com::ComObject<IPropertyBag> {
  public:
    explicit Bag(const Workload& workload)
        : texts_{{u"Inputs", Main::TransformText(workload.Inputs, true)},
                 {u"Outputs", Main::TransformText(workload.Outputs, true)},
                 {u"Rules", Main::TransformText(workload.Rules, true)}} {}

    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        const auto found = texts_.find(Com::ToText(name));
        if (found == texts_.end()) {
            return E_INVALIDARG;
        }
        *value = Com::Variant(TextView(found->second)).Detach();
        return S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) noexcept override { return E_NOTIMPL; }

  private:
    std::map<Text, Text> texts_;
};

} // namespace

ControlHost& ControlHost::One() {
    // Never destroyed: COM has gone by the time that would happen.
    static auto& host = *new ControlHost;
    return host;
}

void ControlHost::ForgetLoaded() {
    One().loaded_.clear();
}

ControlHost& ControlHost::Of(const Workload& workload) {
    ControlHost& host = One();
    if (host.loaded_ != workload.Name) {
        host.Load(workload);
        host.loaded_ = workload.Name;
    }
    return host;
}

ControlHost::ControlHost() {
    Com::Check(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    control_ = NewControl();
}

Com::ComPtr<_FISControl> NewControl() {
    Com::ComPtr<_FISControl> control;
    Com::Check(ControlClass()->CreateInstance(nullptr, __uuidof(_FISControl), control.PutVoid()));
    return control;
}

void ControlHost::Load(const Workload& workload) {
    const auto bag = Com::MakeObject<Bag>(workload);
    Com::Check(control_.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr));
}

Com::ComPtr<IDictionary> ControlHost::InVals() const {
    Com::ComPtr<IDictionary> values;
    Com::Check(control_->get_InVals(values.Put()));
    return values;
}

Com::ComPtr<IDictionary> ControlHost::OutVals() const {
    Com::ComPtr<IDictionary> values;
    Com::Check(control_->get_OutVals(values.Put()));
    return values;
}

void ControlHost::RunBatch(const std::filesystem::path& folder, int divisions) const {
    const Com::Bstr path(folder.u16string());
    BSTR folderArgument = path.Get();
    LONG part = divisions;
    Com::Check(control_->BatchData(&folderArgument, &part));
}

Com::ComPtr<IDictionary> NewPlatformDictionary() {
    Com::ComPtr<IDictionary> dictionary;
    Com::Check(::CoCreateInstance(PlatformDictionary, nullptr, CLSCTX_INPROC_SERVER,
                                  __uuidof(IDictionary), dictionary.PutVoid()));
    Com::Check(dictionary->put_CompareMode(TextCompare));
    return dictionary;
}

ConnectedSink::ConnectedSink(const Com::ComPtr<_FISControl>& control)
    : sink_(Com::MakeObject<CountingSink<>>()) {
    const auto container = control.As<IConnectionPointContainer>();
    Com::Check(container->FindConnectionPoint(__uuidof(__FISControl), point_.Put()));
    Com::Check(point_->Advise(sink_.Get(), &cookie_));
}

ConnectedSink::~ConnectedSink() {
    point_->Unadvise(cookie_);
}

std::size_t ConnectedSink::Count() const {
    return sink_->Count;
}

} // namespace Quorvane::Bench
