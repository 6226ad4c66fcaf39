// SPDX-License-Identifier: MIT
// The trial object, and the module description that the plumbing asks for.
#include "tests/com/plumbing/Trial.h"

#include "com/ErrorBoundary.h"
#include "com/Module.h"
#include "shared/FisError.h"

namespace Quorvane {

bool TrialHoldsState = false;
int TrialStatesGivenUp = 0;

STDMETHODIMP TrialBag::get_Item(BSTR key, VARIANT* item) noexcept {
    return Com::Guard<IBag>([&] { *item = Com::Variant(Items[Text(Com::View(key))]).Detach(); });
}

STDMETHODIMP TrialBag::put_Item(BSTR key, VARIANT item) noexcept {
    return Com::Guard<IBag>([&] { Items[Text(Com::View(key))] = Com::Variant(item); });
}

STDMETHODIMP TrialBag::putref_Item(BSTR key, IDispatch* item) noexcept {
    return Com::Guard<IBag>([&] { Items[Text(Com::View(key))] = Com::Variant(item); });
}

Trial::Trial(IUnknown* outer, TrialEnd* end)
    : ComObject(outer), Bag(Com::MakeObject<TrialBag>()), end_(end) {}

Trial::~Trial() {
    if (end_) {
        ++end_->Destructions;
    }
}

void Trial::FinalRelease() noexcept {
    // An object at its end may well be asked for interfaces by what it lets go of.
    Com::ComPtr<IUnknown> late;
    InnerUnknown()->QueryInterface(__uuidof(ITrial), late.PutVoid());
    if (end_) {
        ++end_->FinalReleases;
    }
}

STDMETHODIMP Trial::get_Number(LONG* value) noexcept {
    return Com::Guard<ITrial>([&] { Com::Out(value) = Number; });
}

STDMETHODIMP Trial::put_Number(LONG value) noexcept {
    Number = value;
    return S_OK;
}

STDMETHODIMP Trial::get_Colour(OLE_COLOR* value) noexcept {
    return Com::Guard<ITrial>([&] { Com::Out(value) = Colour; });
}

STDMETHODIMP Trial::put_Colour(OLE_COLOR value) noexcept {
    Colour = value;
    return S_OK;
}

STDMETHODIMP Trial::get_Bag(IBag** value) noexcept {
    return Com::Guard<ITrial>([&] { Com::ComPtr<IBag>(Bag).CopyTo(value); });
}

STDMETHODIMP Trial::putref_Bag(IBag* value) noexcept {
    return Com::Guard<ITrial>([&] {
        Com::ComPtr<TrialBag> copy = Com::MakeObject<TrialBag>();
        Com::Variant item;
        const Com::Bstr key(u"copied");
        Com::Check(value->get_Item(key.Get(), item.Put()), value);
        copy->Items[u"copied"] = std::move(item);
        Bag = std::move(copy);
    });
}

STDMETHODIMP Trial::get_Nothing(IDispatch** value) noexcept {
    return Com::Guard<ITrial>([&] { Com::Out(value) = nullptr; });
}

STDMETHODIMP Trial::Advance(BSTR* text, LONG* number) noexcept {
    return Com::Guard<ITrial>([&] {
        Com::Bstr longer(Text(Com::View(*text)) + u"+");
        ::SysFreeString(std::exchange(*text, longer.Detach()));
        *number += 1;
    });
}

STDMETHODIMP Trial::Fail(LONG number, BSTR source, BSTR description) noexcept {
    return Com::Guard<ITrial>([&] {
        throw FisError(static_cast<std::uint32_t>(number), Text(Com::View(source)),
                       Text(Com::View(description)));
    });
}

STDMETHODIMP Trial::Happen() noexcept {
    return Com::Guard<ITrial>([&] {
        const Com::KeepAlive keep(this);
        Raise<TrialEvents>(1, {Com::Variant(Number), Com::Variant(u"second")});
        // Reached with the object alive, whatever the sinks did.
        ++Number;
    });
}

STDMETHODIMP Trial::GetClassID(CLSID* clsid) noexcept {
    return Com::Guard<IPersist>([&] { Com::Out(clsid) = __uuidof(::TrialClass); });
}

void Trial::Changed(DISPID property) {
    Notify<IPropertyNotifySink>([&](IPropertyNotifySink& sink) { sink.OnChanged(property); });
}

const Com::ModuleDescription& Com::DescribeModule() noexcept {
    static constexpr GUID category = {
        0x40fc6ed4, 0x2438, 0x11cf, {0xa3, 0xdb, 0x08, 0x00, 0x36, 0xf1, 0x25, 0x02}};
    static constexpr GUID categories[] = {category};
    static constexpr CLSID clsid = __uuidof(::TrialClass);
    static constexpr Com::ClassEntry classes[] = {
        {&clsid,
         &Com::CreateInstance<Trial>,
         {u"A trial object", u"QuorvaneTrial.Trial", u"1", true, 0x20191, 101, categories}}};
    static constexpr Com::ModuleDescription description = {
        classes,
        &LIBID_TrialLibrary,
        1,
        0,
        0x409,
        []() noexcept { return TrialHoldsState; },
        [] { ++TrialStatesGivenUp; }};
    return description;
}

} // namespace Quorvane
