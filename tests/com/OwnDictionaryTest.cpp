// SPDX-License-Identifier: MIT
// What the control's own dictionaries promise beyond what every platform's dictionary does.
#include "tests/com/support/DictionaryContract.h"
#include "tests/com/support/ValueObject.h"

namespace Quorvane {
namespace {

using Strings = std::vector<std::string>;

class OwnDictionary : public DictionaryContract {};

INSTANTIATE_TEST_SUITE_P(Of, OwnDictionary, testing::Values(DictionaryKinds[0], DictionaryKinds[1]),
                         testing::PrintToStringParamName());

TEST_P(OwnDictionary, GivesAnEntryAnotherKeyInItsPlace) {
    AddThree();
    EXPECT_EQ(Rekey(TextValue(u"two"), TextValue(u"zwei")), S_OK);
    EXPECT_EQ(Keys(), (Strings{"String one", "String zwei", "String three"}));
    EXPECT_EQ(Rekey(TextValue(u"one"), Com::Variant(1)), S_OK);
    EXPECT_EQ(Keys(), (Strings{"Long 1", "String zwei", "String three"}));
    EXPECT_EQ(Rekey(Com::Variant(1), TextValue(u"one")), S_OK);
    EXPECT_EQ(Keys(), (Strings{"String one", "String zwei", "String three"}));
    EXPECT_EQ(Items(), (Strings{"Long 1", "Long 2", "Long 3"}));
    EXPECT_EQ(Rekey(TextValue(u"one"), TextValue(u"one")), S_OK) << "the same key";
    EXPECT_EQ(Rekey(TextValue(u"four"), TextValue(u"vier")), MissingKey);
    EXPECT_EQ(Count(), 3);
}

TEST_P(OwnDictionary, RefusesAReferenceToNowhere) {
    AddThree();
    for (const VARTYPE type : {VT_BSTR, VT_I4, VT_R8, VT_VARIANT, VT_DISPATCH}) {
        VARIANT key{};
        key.vt = static_cast<VARTYPE>(VT_BYREF | type);
        VARIANT item{};
        EXPECT_TRUE(FAILED(Dictionary().get_Item(&key, &item))) << type;
        EXPECT_TRUE(FAILED(Dictionary().Remove(&key))) << type;
    }
    EXPECT_EQ(Count(), 3);
}

TEST_P(OwnDictionary, TakesAnotherSpellingOfAKey) {
    AddThree();
    EXPECT_EQ(Rekey(TextValue(u"two"), TextValue(u"Two")), S_OK);
    EXPECT_EQ(Keys()[1], "String Two");
    EXPECT_EQ(Get(TextValue(u"Two")), "Long 2");
}

TEST_P(OwnDictionary, TakesKeysOfEveryPlainType) {
    const Com::Variant keys[] = {Com::Variant(),      Bare(VT_NULL),     TextValue(u""),
                                 Com::Variant(5),     Typed(VT_CY, 6.5), Typed(VT_DATE, 7.5),
                                 Typed(VT_I8, 8),     Typed(VT_UI8, 9),  Typed(VT_DECIMAL, 10),
                                 Com::Variant(false), Com::Variant(true)};
    Strings expected;
    for (const Com::Variant& key : keys) {
        EXPECT_FALSE(Has(key)) << Describe(key);
        EXPECT_EQ(Add(key, key), S_OK) << Describe(key);
        EXPECT_EQ(Add(key, key), DuplicateKey) << Describe(key);
        EXPECT_EQ(Get(key), Describe(key));
        expected.push_back(Describe(key));
    }
    EXPECT_EQ(Keys(), expected);
    EXPECT_EQ(Get(Com::Variant(0)), "Boolean False") << "equal numbers are one key";
    EXPECT_EQ(Get(Com::Variant(-1)), "Boolean True");
    EXPECT_EQ(Get(Com::Variant(6.5)), "Currency 6.5");
    for (const Com::Variant& key : keys) {
        Hash(key);
        EXPECT_EQ(Remove(key), S_OK) << Describe(key);
    }
    EXPECT_EQ(Count(), 0);
}

TEST_P(OwnDictionary, TakesTwoZerosForOneKey) {
    EXPECT_EQ(Add(Com::Variant(0.0), Com::Variant(1)), S_OK);
    EXPECT_TRUE(Has(Com::Variant(-0.0)));
}

TEST_P(OwnDictionary, TakesKeysByReference) {
    AddThree();
    EXPECT_EQ(Add(Com::Variant(4), Com::Variant(44)), S_OK);
    Com::Variant variables[] = {TextValue(u"two"), Com::Variant(4)};
    for (Com::Variant& variable : variables) {
        VARIANT toVariant{};
        toVariant.vt = VT_BYREF | VT_VARIANT;
        toVariant.pvarVal = &variable.Get();
        VARIANT_BOOL exists = VARIANT_FALSE;
        EXPECT_EQ(Dictionary().Exists(&toVariant, &exists), S_OK);
        EXPECT_EQ(exists, VARIANT_TRUE) << Describe(variable);
        VARIANT direct = ByReference(variable.Get());
        EXPECT_EQ(Dictionary().Remove(&direct), S_OK) << Describe(variable);
    }
    EXPECT_EQ(Keys(), (Strings{"String one", "String three"}));
}

TEST_P(OwnDictionary, TakesItemsByPutRefToo) {
    const auto object = Com::MakeObject<ValueObject>(Com::Variant(1));
    EXPECT_EQ(PutRef(TextValue(u"key"), object->AsVariant()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(ItemOf(Object(), u"key").Get().pdispVal, object.Get()));
    EXPECT_EQ(PutRef(TextValue(u"key"), Com::Variant(3)), S_OK);
    EXPECT_EQ(Get(TextValue(u"key")), "Long 3");
}

TEST_P(OwnDictionary, RefusesNullArguments) {
    VARIANT value{};
    EXPECT_EQ(Dictionary().Add(nullptr, &value), E_POINTER);
    EXPECT_EQ(Dictionary().Add(&value, nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().get_Item(nullptr, &value), E_POINTER);
    EXPECT_EQ(Dictionary().get_Item(&value, nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().put_Item(&value, nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().putref_Item(nullptr, &value), E_POINTER);
    EXPECT_EQ(Dictionary().put_Key(&value, nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().Exists(&value, nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().Remove(nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().get_Count(nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().Keys(nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().Items(nullptr), E_POINTER);
    EXPECT_EQ(Dictionary()._NewEnum(nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().get_CompareMode(nullptr), E_POINTER);
    EXPECT_EQ(Dictionary().get_HashVal(&value, nullptr), E_POINTER);
    EXPECT_EQ(Count(), 0);
}

TEST_P(OwnDictionary, RefusesAComparisonThatItDoesNotHave) {
    for (const int mode : {-1, 2, 3, 1033}) {
        EXPECT_EQ(Dictionary().put_CompareMode(mode), InvalidCall) << mode;
    }
    int mode = -1;
    EXPECT_EQ(Dictionary().get_CompareMode(&mode), S_OK);
    EXPECT_EQ(mode, GetParam().CompareMode);
}

TEST_P(OwnDictionary, EnumeratesTheKeysOfTheMomentWhateverBecomesOfThem) {
    AddThree();
    const auto enumerator = Enumerate();
    EXPECT_EQ(Dictionary().RemoveAll(), S_OK);
    EXPECT_EQ(enumerator->Skip(1), S_OK);
    Com::ComPtr<IEnumVARIANT> clone;
    EXPECT_EQ(enumerator->Clone(clone.Put()), S_OK);
    EXPECT_EQ(Rest(*enumerator), (Strings{"String two", "String three"}));
    EXPECT_EQ(Rest(*clone), (Strings{"String two", "String three"}));
    EXPECT_EQ(enumerator->Reset(), S_OK);
    EXPECT_EQ(enumerator->Skip(4), S_FALSE);
    EXPECT_EQ(Rest(*enumerator), Strings{});
}

TEST_P(OwnDictionary, SupportsErrorInformation) {
    const auto support = Object().As<ISupportErrorInfo>();
    ASSERT_TRUE(support);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(IDictionary)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_FISControl)), S_FALSE);
    EXPECT_EQ(Remove(TextValue(u"none")), MissingKey);
    Com::ComPtr<IErrorInfo> info;
    EXPECT_EQ(::GetErrorInfo(0, info.Put()), S_FALSE) << "the number says it all";
}

TEST_P(OwnDictionary, IsWholeWhenAnItemComesBackWhileItGoes) {
    /// Calls the test at its end.
    class Farewell final : public Com::ComObject<IErrorLog> {
      public:
        std::function<void()> Last;
        STDMETHODIMP AddError(LPCOLESTR, EXCEPINFO*) noexcept override { return S_OK; }

      protected:
        void FinalRelease() noexcept override { Last(); }
    };
    const std::function<void()> drops[] = {
        [&] { EXPECT_EQ(Remove(TextValue(u"key")), S_OK); },
        [&] { EXPECT_EQ(Dictionary().RemoveAll(), S_OK); },
        [&] { EXPECT_EQ(Put(TextValue(u"key"), Com::Variant(1)), S_OK); },
    };
    for (const auto& drop : drops) {
        int ends = 0;
        {
            const auto object = Com::MakeObject<Farewell>();
            object->Last = [&] {
                ++ends;
                EXPECT_EQ(Put(TextValue(u"other"), Com::Variant(2)), S_OK);
                Get(TextValue(u"key"));
                EXPECT_EQ(Dictionary().RemoveAll(), S_OK);
            };
            VARIANT item{};
            item.vt = VT_UNKNOWN;
            item.punkVal = object.Get();
            PutItem(Dictionary(), u"key", item);
        }
        drop();
        EXPECT_EQ(ends, 1);
        EXPECT_EQ(Count(), 0);
    }
}

/// The dictionaries as the control hands them out.
class HandedOutDictionary : public ControlTest {};

TEST_F(HandedOutDictionary, IsOneObjectForAllWhoAsk) {
    const auto first = Run(Adder);
    const auto second = Create();
    Com::ComPtr<IDictionary> other;
    EXPECT_EQ(second->get_InVals(other.Put()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(InVals(first).Get(), other.Get()));
    EXPECT_FALSE(Com::IsSameObject(InVals(first).Get(), OutVals(first).Get()));
}

TEST_F(HandedOutDictionary, IgnoresTheCaseOfInputsAndTellsThatOfOutputs) {
    const auto placed = Run(Adder);
    int mode = -1;
    EXPECT_EQ(InVals(placed)->get_CompareMode(&mode), S_OK);
    EXPECT_EQ(mode, 1);
    EXPECT_EQ(OutVals(placed)->get_CompareMode(&mode), S_OK);
    EXPECT_EQ(mode, 0);
}

TEST_F(HandedOutDictionary, KeepsItsChangesWithoutTheHostsObject) {
    const auto placed = Run(Adder);
    PutItem(InVals(placed), u"Note", TextValue(u"kept"));
    EXPECT_EQ(Describe(ItemOf(InVals(placed), u"note")), "String kept");
    EXPECT_EQ(KeysOf(*InVals(placed)), (Strings{"String X", "String Note"}));
}

TEST_F(HandedOutDictionary, OutlivesTheControl) {
    auto placed = Run(Adder);
    const auto inputs = InVals(placed);
    const auto outputs = OutVals(placed);
    placed = {};
    EXPECT_EQ(Describe(ItemOf(inputs, u"X")), "Double -128");
    EXPECT_EQ(KeysOf(*outputs), Strings{"String Y"});
    EXPECT_EQ(inputs->RemoveAll(), S_OK);
}

} // namespace
} // namespace Quorvane
