// SPDX-License-Identifier: MIT
// Late-bound calls on a dictionary, as scripts make them.
#include "tests/com/support/DictionaryContract.h"

namespace Quorvane {
namespace {

using Strings = std::vector<std::string>;

class DictionaryAutomation : public DictionaryContract {
  protected:
    static constexpr WORD Get = DISPATCH_PROPERTYGET;
    static constexpr WORD Method = DISPATCH_METHOD;
    static constexpr WORD Put = DISPATCH_PROPERTYPUT;

    /// Calls a member with arguments in their natural order; for a put the last is the new value.
    HRESULT Invoke(DISPID member, WORD flags, std::vector<Com::Variant> arguments,
                   Com::Variant* result = nullptr) {
        std::vector<VARIANT> reversed;
        for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
            reversed.push_back(argument->Get());
        }
        DISPID newValue = DISPID_PROPERTYPUT;
        const bool isPut = (flags & Put) != 0;
        DISPPARAMS parameters{reversed.data(), isPut ? &newValue : nullptr,
                              static_cast<UINT>(reversed.size()), isPut ? 1u : 0u};
        EXCEPINFO exception{};
        const HRESULT outcome =
            Dictionary().Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                result ? result->Put() : nullptr, &exception, nullptr);
        ::SysFreeString(exception.bstrSource);
        ::SysFreeString(exception.bstrDescription);
        ::SysFreeString(exception.bstrHelpFile);
        return outcome == DISP_E_EXCEPTION ? exception.scode : outcome;
    }

    std::string Read(DISPID member, WORD flags, std::vector<Com::Variant> arguments) {
        Com::Variant result;
        const HRESULT outcome = Invoke(member, flags, std::move(arguments), &result);
        return outcome == S_OK ? Describe(result) : "error " + std::to_string(outcome);
    }
};

INSTANTIATE_TEST_SUITE_P(Of, DictionaryAutomation, testing::ValuesIn(DictionaryKinds),
                         testing::PrintToStringParamName());

TEST_P(DictionaryAutomation, KnowsItsMembersByName) {
    const struct {
        const wchar_t* Name;
        DISPID Id;
    } members[] = {{L"Item", 0},      {L"Add", 1},         {L"Count", 2},    {L"Exists", 3},
                   {L"Items", 4},     {L"Key", 5},         {L"Keys", 6},     {L"Remove", 7},
                   {L"RemoveAll", 8}, {L"CompareMode", 9}, {L"HashVal", 10}, {L"_NewEnum", -4},
                   {L"item", 0},      {L"COUNT", 2}};
    for (const auto& [name, expected] : members) {
        DISPID id = -100;
        LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
        EXPECT_EQ(Dictionary().GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK)
            << Narrow(Com::ToText(name));
        EXPECT_EQ(id, expected) << Narrow(Com::ToText(name));
    }
    DISPID id = 0;
    wchar_t unknown[] = L"Values";
    LPOLESTR names[] = {unknown};
    EXPECT_EQ(Dictionary().GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id),
              DISP_E_UNKNOWNNAME);
}

TEST_P(DictionaryAutomation, HasTypeInformation) {
    UINT count = 0;
    EXPECT_EQ(Dictionary().GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    Com::ComPtr<ITypeInfo> info;
    ASSERT_EQ(Dictionary().GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, __uuidof(IDictionary));
    info->ReleaseTypeAttr(attributes);
}

TEST_P(DictionaryAutomation, CallsEveryMember) {
    const Com::Variant one = TextValue(u"one");
    EXPECT_EQ(Invoke(1, Method, {one, Com::Variant(1)}), S_OK);
    EXPECT_EQ(Invoke(1, Method, {TextValue(u"two"), Com::Variant(2)}), S_OK);
    EXPECT_EQ(Read(2, Get, {}), "Long 2");
    EXPECT_EQ(Read(2, Get | Method, {}), "Long 2") << "scripts say so";
    EXPECT_EQ(Read(3, Method, {one}), "Boolean True");
    EXPECT_EQ(Read(0, Get, {one}), "Long 1");
    EXPECT_EQ(Read(0, Get | Method, {one}), "Long 1");
    EXPECT_EQ(Invoke(0, Put, {one, Com::Variant(11)}), S_OK);
    EXPECT_EQ(Read(0, Get, {one}), "Long 11");
    EXPECT_EQ(Invoke(0, Put, {one, Com::Variant(static_cast<IDispatch*>(Object().Get()))}), S_OK);
    EXPECT_EQ(Read(0, Get, {one}), "Object");
    EXPECT_EQ(Invoke(0, Put, {one, Com::Variant(1)}), S_OK);
    EXPECT_EQ(Invoke(5, Put, {one, TextValue(u"uno")}), S_OK);
    EXPECT_TRUE(Has(TextValue(u"uno")));
    EXPECT_FALSE(Has(one));
    EXPECT_EQ(Read(9, Get, {}), IgnoresCase() ? "Long 1" : "Long 0");
    Com::Variant array;
    EXPECT_EQ(Invoke(6, Method, {}, &array), S_OK);
    EXPECT_EQ(ElementsOf(array.Get()), Keys());
    EXPECT_EQ(Invoke(4, Method, {}, &array), S_OK);
    EXPECT_EQ(ElementsOf(array.Get()), Items());
    EXPECT_EQ(Read(10, Get, {one}), Hash(one));
    EXPECT_EQ(Read(-4, Get | Method, {}), "Unknown");
    EXPECT_EQ(Invoke(7, Method, {TextValue(u"two")}), S_OK);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Invoke(8, Method, {}), S_OK);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Invoke(9, Put, {Com::Variant(1)}), S_OK);
}

TEST_P(DictionaryAutomation, GivesTheSameErrorsAsEarlyBound) {
    AddThree();
    const Com::Variant one = TextValue(u"one");
    EXPECT_EQ(Invoke(1, Method, {one, Com::Variant(9)}), DuplicateKey);
    EXPECT_EQ(Invoke(7, Method, {TextValue(u"four")}), MissingKey);
    EXPECT_EQ(Invoke(5, Put, {one, TextValue(u"two")}), DuplicateKey);
    EXPECT_EQ(Invoke(9, Put, {Com::Variant(0)}), InvalidCall);
    EXPECT_EQ(Invoke(99, Method, {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Invoke(2, Put, {Com::Variant(1)}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Invoke(3, Method, {}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Count(), 3);
}

TEST_P(DictionaryAutomation, TakesNamedArguments) {
    // Add(Key, Item), both by name, in either order.
    VARIANT arguments[] = {Com::Variant(5).Get(), TextValue(u"five").Detach()};
    wchar_t add[] = L"Add";
    wchar_t key[] = L"Key";
    wchar_t item[] = L"Item";
    LPOLESTR names[] = {add, item, key};
    DISPID ids[3]{};
    ASSERT_EQ(Dictionary().GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
    EXPECT_EQ(ids[0], 1);
    EXPECT_EQ(ids[1], 1) << "the second parameter";
    EXPECT_EQ(ids[2], 0) << "the first parameter";
    DISPPARAMS parameters{arguments, &ids[1], 2, 2};
    EXPECT_EQ(Dictionary().Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, Method, &parameters,
                                  nullptr, nullptr, nullptr),
              S_OK);
    ::VariantClear(&arguments[1]);
    EXPECT_EQ(Keys(), Strings{"String five"});
    EXPECT_EQ(Items(), Strings{"Long 5"});
}

} // namespace
} // namespace Quorvane
