// SPDX-License-Identifier: MIT
// What a host does while memory ends.
#include "tests/memory/Operations.h"

#include <gtest/gtest.h>

#include <string>

#include "com/Scoped.h"
#include "tests/com/support/Values.h"

namespace Quorvane {
namespace {

bool Nothing(ScarceHost&) {
    return true;
}

bool Created(ScarceHost& host) {
    return host.Create() == S_OK;
}

bool Loaded(ScarceHost& host) {
    return Created(host) && host.LoadFromBag(TwoInputs) == S_OK;
}

bool Stored(ScarceHost& host) {
    return Loaded(host) && host.SaveToStream() == S_OK;
}

bool Active(ScarceHost& host) {
    return Loaded(host) && host.Activate() == S_OK;
}

bool Designed(ScarceHost& host) {
    host.SetUserMode(false);
    return Loaded(host);
}

bool PageIsOpen(ScarceHost& host) {
    return Designed(host) && host.OpenPage() == S_OK;
}

bool Infers(ScarceHost& host) {
    return host.Infers();
}

/// The first failure of some calls; those behind it are not made.
template <class... Call>
HRESULT InTurn(Call&&... calls) {
    HRESULT result = S_OK;
    static_cast<void>((SUCCEEDED(result = calls()) && ...));
    return result;
}

/// Puts an input and reads it, by the interface and as scripts do, and then all there are.
HRESULT UseValues(ScarceHost& host) {
    Com::ComPtr<IDictionary> values;
    Com::ComPtr<IUnknown> enumerator;
    const Com::Variant key{TextView(u"A")};
    VARIANT name = key.Get();
    VARIANT number = Com::Variant(1.0).Get();
    Com::Variant item;
    DISPPARAMS parameters{&name, nullptr, 1, 0};
    return InTurn([&] { return host.Control().get_InVals(values.Put()); },
                  [&] { return values->put_Item(&name, &number); },
                  [&] { return values->get_Item(&name, item.Put()); },
                  [&] {
                      return values->Invoke(DISPID_VALUE, IID_NULL, 0x409, DISPATCH_PROPERTYGET,
                                            &parameters, item.Put(), nullptr, nullptr);
                  },
                  [&] { return values->Keys(item.Put()); },
                  [&] { return values->Items(item.Put()); },
                  [&] { return values->_NewEnum(enumerator.Put()); },
                  [&] { return enumerator.As<IEnumVARIANT>()->Next(1, item.Put(), nullptr); });
}

/// Gives the inputs in a dictionary of the host's own.
HRESULT UseHostDictionary(ScarceHost& host) {
    const auto own = NewPlatformDictionary();
    PutItem(own, u"A", 1.0);
    PutItem(own, u"B", 2.0);
    return InTurn([&] { return host.Control().putref_InVals(own.Get()); },
                  [&] { return host.Control().Fire(); });
}

/// Sets and reads properties of every kind.
HRESULT UseProperties(ScarceHost& host) {
    const Com::Bstr caption(u"A caption that is too long for a short text");
    Com::Bstr text;
    Com::ComPtr<IFontDisp> font;
    return InTurn([&] { return host.Control().put_Caption(caption.Get()); },
                  [&] { return host.Control().get_Caption(text.Put()); },
                  [&] { return host.Control().get_Font(font.Put()); },
                  [&] { return host.Control().putref_Font(font.Get()); },
                  [&] { return host.Control().put_BackColor(0x00123456); },
                  [&] { return host.Control().get_Rules(text.Put()); });
}

/// Reads a text and fires a cycle as scripts do.
HRESULT CallByName(ScarceHost& host) {
    const auto call = [&](const wchar_t* member, WORD kind) {
        auto* name = const_cast<wchar_t*>(member);
        DISPID id = DISPID_UNKNOWN;
        DISPPARAMS none{};
        Com::Variant result;
        EXCEPINFO exception{};
        return InTurn([&] { return host.Control().GetIDsOfNames(IID_NULL, &name, 1, 0x409, &id); },
                      [&] {
                          const HRESULT called = host.Control().Invoke(
                              id, IID_NULL, 0x409, kind, &none, result.Put(), &exception, nullptr);
                          return called == DISP_E_EXCEPTION ? exception.scode : called;
                      });
    };
    return InTurn([&] { return call(L"Caption", DISPATCH_PROPERTYGET); },
                  [&] { return call(L"InVals", DISPATCH_PROPERTYGET); },
                  [&] { return call(L"Fire", DISPATCH_METHOD); });
}

/// Sets a property that cannot be set at run time, and takes the refusal for success.
HRESULT CauseAnError(ScarceHost& host) {
    constexpr auto NotAtRunTime = static_cast<HRESULT>(0x800A017E);
    const Com::Bstr text(u"X");
    const HRESULT result = host.Control().put_Inputs(text.Get());
    return result == NotAtRunTime ? S_OK : result;
}

/// 125 rules over three inputs of five terms each: enough to be fired as a grid.
System Grid() {
    static const Text inputs = [] {
        Text text;
        for (const TextView name : {u"A", u"B", u"C"}) {
            text += (text.empty() ? u"" : u"|") + Text(name) + u"/4/0/";
            for (int term = 0; term < 5; ++term) {
                const Text point = Widen(std::to_string(term));
                text += (term == 0 ? u"T" : u";T") + point + u",0," + point + u"," + point + u",4";
            }
        }
        return text;
    }();
    static const Text rules = [] {
        Text text;
        for (int rule = 0; rule < 125; ++rule) {
            const auto term = [](int number) { return u"T" + Widen(std::to_string(number % 5)); };
            text += (rule == 0 ? u"A>" : u"|A>") + term(rule) + u";B>" + term(rule / 5) + u";C>" +
                    term(rule / 25) + u"/Sum<Eight:1";
        }
        return text;
    }();
    return {inputs, u"Sum/12/0/Eight,8", rules};
}

HRESULT OpenAndClosePage(ScarceHost& host) {
    const HRESULT result = host.OpenPage();
    host.ClosePage();
    return result;
}

const Operation All[] = {
    {"Create", Nothing, [](ScarceHost& host) { return host.Create(); },
     [](ScarceHost& host) { return host.InitNew() == S_OK && host.Fire() == S_OK; }},
    {"InitNew", Created, [](ScarceHost& host) { return host.InitNew(); },
     [](ScarceHost& host) { return host.HasSystem(); }},
    {"LoadFromBag", Created, [](ScarceHost& host) { return host.LoadFromBag(TwoInputs); }, Infers},
    {"LoadGrid", Created, [](ScarceHost& host) { return host.LoadFromBag(Grid()); }, Infers},
    {"LoadFromStream", Stored, [](ScarceHost& host) { return host.LoadFromStream(); }, Infers},
    {"SaveToBag", Loaded, [](ScarceHost& host) { return host.SaveToBag(); },
     [](ScarceHost& host) { return host.HasSaved(); }},
    {"SaveToStream", Loaded, [](ScarceHost& host) { return host.SaveToStream(); },
     [](ScarceHost& host) { return host.HasSaved(); }},
    {"Fire", Loaded, [](ScarceHost& host) { return host.Fire(); }, Infers},
    {"FireActive", Active, [](ScarceHost& host) { return host.Fire(); }, Infers},
    {"Values", Loaded, UseValues, Infers},
    {"HostDictionary", Loaded, UseHostDictionary, Infers},
    {"Properties", Loaded, UseProperties, Infers},
    {"CallByName", Loaded, CallByName, Infers},
    {"Error", Loaded, CauseAnError, Infers},
    {"BatchData", Loaded, [](ScarceHost& host) { return host.Batch(); },
     [](ScarceHost& host) { return host.HasBatch(); }},
    {"Draw", Loaded, [](ScarceHost& host) { return host.Draw(); }, Infers},
    {"Picture", Loaded, [](ScarceHost& host) { return host.GetPicture(); }, Infers},
    {"Activate", Loaded, [](ScarceHost& host) { return host.Activate(); },
     [](ScarceHost& host) { return host.IsActive() && host.Infers(); }},
    {"Page", Designed, OpenAndClosePage, [](ScarceHost& host) { return host.OpenPage() == S_OK; }},
    {"RuleEditor", PageIsOpen, [](ScarceHost& host) { return host.OpenRuleEditor(); },
     [](ScarceHost& host) { return host.HasEdited(); }},
};

} // namespace

std::span<const Operation> Operations() {
    return All;
}

} // namespace Quorvane
