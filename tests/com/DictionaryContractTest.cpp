// SPDX-License-Identifier: MIT
// What a host may rely on with every dictionary, by its interface.
#include <functional>
#include <limits>
#include <set>

#include "tests/com/support/DictionaryContract.h"
#include "tests/com/support/ValueObject.h"

namespace Quorvane {
namespace {

using Strings = std::vector<std::string>;

INSTANTIATE_TEST_SUITE_P(Of, DictionaryContract, testing::ValuesIn(DictionaryKinds),
                         testing::PrintToStringParamName());

TEST_P(DictionaryContract, IsEmptyAtFirst) {
    EXPECT_EQ(Count(), 0);
    EXPECT_TRUE(Keys().empty());
    EXPECT_TRUE(Items().empty());
    EXPECT_FALSE(Has(TextValue(u"one")));
    EXPECT_TRUE(Rest(*Enumerate()).empty());
}

TEST_P(DictionaryContract, KeepsTheOrderOfAdding) {
    AddThree();
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(Keys(), (Strings{"String one", "String two", "String three"}));
    EXPECT_EQ(Items(), (Strings{"Long 1", "Long 2", "Long 3"}));
}

TEST_P(DictionaryContract, RefusesToAddAKeyTwice) {
    AddThree();
    EXPECT_EQ(Add(TextValue(u"two"), Com::Variant(9)), DuplicateKey);
    EXPECT_EQ(Get(TextValue(u"two")), "Long 2");
    EXPECT_EQ(Add(TextValue(u"TWO"), Com::Variant(9)), IgnoresCase() ? DuplicateKey : S_OK);
    EXPECT_EQ(Count(), IgnoresCase() ? 3 : 4);
}

TEST_P(DictionaryContract, ReplacesAnItemInItsPlaceAndAddsOneThatIsMissing) {
    AddThree();
    EXPECT_EQ(Put(TextValue(u"one"), TextValue(u"first")), S_OK);
    EXPECT_EQ(Put(TextValue(u"four"), Com::Variant(4.5)), S_OK);
    EXPECT_EQ(Keys(), (Strings{"String one", "String two", "String three", "String four"}));
    EXPECT_EQ(Items(), (Strings{"String first", "Long 2", "Long 3", "Double 4.5"}));
    EXPECT_EQ(Put(TextValue(u"TWO"), Com::Variant(7)), S_OK);
    EXPECT_EQ(Get(TextValue(u"two")), IgnoresCase() ? "Long 7" : "Long 2");
    EXPECT_EQ(Keys()[1], "String two") << "the key keeps its spelling";
}

TEST_P(DictionaryContract, AddsAKeyThatIsReadAndMissing) {
    AddThree();
    EXPECT_EQ(Get(TextValue(u"four")), "Empty");
    EXPECT_EQ(Count(), 4);
    EXPECT_TRUE(Has(TextValue(u"four")));
    EXPECT_EQ(Keys()[3], "String four");
    EXPECT_EQ(Items()[3], "Empty");
}

TEST_P(DictionaryContract, AddsNothingByAskingWhetherAKeyExists) {
    AddThree();
    EXPECT_TRUE(Has(TextValue(u"three")));
    EXPECT_EQ(Has(TextValue(u"Three")), IgnoresCase());
    EXPECT_FALSE(Has(TextValue(u"four")));
    EXPECT_EQ(Count(), 3);
}

TEST_P(DictionaryContract, GivesAnEntryAnotherKey) {
    AddThree();
    EXPECT_EQ(Rekey(TextValue(u"two"), TextValue(u"zwei")), S_OK);
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(Get(TextValue(u"zwei")), "Long 2");
    EXPECT_FALSE(Has(TextValue(u"two")));
    EXPECT_EQ(Rekey(TextValue(u"one"), TextValue(u"three")), DuplicateKey);
    EXPECT_EQ(Get(TextValue(u"one")), "Long 1");
    EXPECT_EQ(Get(TextValue(u"three")), "Long 3");
    EXPECT_EQ(Rekey(TextValue(u"one"), Com::Variant(1)), S_OK) << "another type of key";
    EXPECT_FALSE(Has(TextValue(u"one")));
    EXPECT_EQ(Get(Com::Variant(1)), "Long 1");
    EXPECT_EQ(Count(), 3);
}

TEST_P(DictionaryContract, RemovesEntries) {
    AddThree();
    EXPECT_EQ(Remove(TextValue(u"two")), S_OK);
    EXPECT_EQ(Keys(), (Strings{"String one", "String three"}));
    EXPECT_EQ(Remove(TextValue(u"two")), MissingKey);
    EXPECT_EQ(Remove(TextValue(u"ONE")), IgnoresCase() ? S_OK : MissingKey);
    EXPECT_EQ(Add(TextValue(u"two"), Com::Variant(22)), S_OK);
    EXPECT_EQ(Keys().back(), "String two") << "added anew, at the end";
    EXPECT_EQ(Dictionary().RemoveAll(), S_OK);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Dictionary().RemoveAll(), S_OK) << "of an empty one";
    AddThree();
    EXPECT_EQ(Count(), 3);
}

TEST_P(DictionaryContract, ChangesTheComparisonWhileItIsEmpty) {
    int mode = -1;
    EXPECT_EQ(Dictionary().get_CompareMode(&mode), S_OK);
    EXPECT_EQ(mode, GetParam().CompareMode);
    EXPECT_EQ(Dictionary().put_CompareMode(1 - mode), S_OK);
    EXPECT_EQ(Dictionary().put_CompareMode(mode), S_OK);
    AddThree();
    EXPECT_EQ(Dictionary().put_CompareMode(1 - mode), InvalidCall);
    EXPECT_EQ(Dictionary().put_CompareMode(mode), InvalidCall) << "even to the same";
    EXPECT_EQ(Dictionary().RemoveAll(), S_OK);
    EXPECT_EQ(Dictionary().put_CompareMode(1 - mode), S_OK);
    EXPECT_EQ(Add(TextValue(u"a"), Com::Variant(1)), S_OK);
    EXPECT_EQ(Has(TextValue(u"A")), mode == 0);
}

TEST_P(DictionaryContract, TellsNumbersAndTextsApart) {
    EXPECT_EQ(Add(Com::Variant(1), TextValue(u"number")), S_OK);
    EXPECT_EQ(Add(TextValue(u"1"), TextValue(u"text")), S_OK);
    EXPECT_EQ(Get(Com::Variant(1)), "String number");
    EXPECT_EQ(Get(TextValue(u"1")), "String text");
    EXPECT_EQ(Keys(), (Strings{"Long 1", "String 1"})) << "each key keeps its type";
}

TEST_P(DictionaryContract, TakesNumbersOfEqualValueForOneKey) {
    EXPECT_EQ(Add(Com::Variant(1), Com::Variant(10)), S_OK);
    for (const VARTYPE type : {VT_I2, VT_UI1, VT_R4, VT_R8}) {
        EXPECT_TRUE(Has(Typed(type, 1))) << type;
        EXPECT_EQ(Add(Typed(type, 1), Com::Variant(11)), DuplicateKey) << type;
    }
    EXPECT_FALSE(Has(Com::Variant(1.5)));
    EXPECT_EQ(Add(Com::Variant(1.5), Com::Variant(15)), S_OK);
    EXPECT_EQ(Get(Com::Variant(1.5)), "Long 15");
    EXPECT_EQ(Get(Typed(VT_R4, 1.5)), "Long 15");
    EXPECT_EQ(Count(), 2);
}

TEST_P(DictionaryContract, RefusesNotANumberForAKey) {
    const Com::Variant key(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(Add(key, Com::Variant(1)), InvalidCall);
    EXPECT_EQ(Count(), 0);
}

/// Objects for keys. Under Wine the platform's dictionary knows an object by the remainder of its
/// address alone, so that two in a thousand meet: those that would are passed over.
class ObjectKeys {
  public:
    /// `hash` gives the hash of a key; no object gets one of those in `taken`.
    ObjectKeys(std::function<std::string(const Com::Variant&)> hash, std::set<std::string> taken)
        : hash_(std::move(hash)), taken_(std::move(taken)) {}

    Com::ComPtr<ValueObject> Next() {
        do {
            made_.push_back(Com::MakeObject<ValueObject>(Com::Variant(1)));
        } while (!taken_.insert(hash_(made_.back()->AsVariant())).second);
        return made_.back();
    }

  private:
    std::function<std::string(const Com::Variant&)> hash_;
    std::set<std::string> taken_;
    std::vector<Com::ComPtr<ValueObject>> made_;
};

TEST_P(DictionaryContract, KnowsObjectsByTheirIdentity) {
    ObjectKeys objects([this](const Com::Variant& key) { return Hash(key); },
                       {Hash(Com::Variant(1))});
    const auto first = objects.Next();
    const auto second = objects.Next();
    EXPECT_EQ(Add(first->AsVariant(), TextValue(u"first")), S_OK);
    EXPECT_FALSE(Has(second->AsVariant()));
    EXPECT_FALSE(Has(Com::Variant(1))) << "not by its default property";
    EXPECT_EQ(Add(second->AsVariant(), TextValue(u"second")), S_OK);
    EXPECT_EQ(Add(first->AsVariant(), Com::Variant()), DuplicateKey);
    EXPECT_EQ(Get(first->AsVariant()), "String first");
    EXPECT_EQ(Get(second->AsVariant()), "String second");
    EXPECT_EQ(Keys(), (Strings{"Object", "Object"}));
    EXPECT_EQ(Remove(first->AsVariant()), S_OK);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Dictionary().RemoveAll(), S_OK);
}

TEST_P(DictionaryContract, RefusesAnArrayForAKey) {
    EXPECT_TRUE(FAILED(Add(ArrayValue(), Com::Variant(1))));
    EXPECT_EQ(Count(), 0);
}

TEST_P(DictionaryContract, TakesTextKeysByReference) {
    AddThree();
    Com::Variant inner = TextValue(u"two");
    VARIANT key = ByReference(inner.Get());
    VARIANT_BOOL exists = VARIANT_FALSE;
    EXPECT_EQ(Dictionary().Exists(&key, &exists), S_OK);
    EXPECT_EQ(exists, VARIANT_TRUE);
    Com::Variant item;
    EXPECT_EQ(Dictionary().get_Item(&key, item.Put()), S_OK);
    EXPECT_EQ(Describe(item), "Long 2");
    EXPECT_EQ(Count(), 3);
}

TEST_P(DictionaryContract, KeepsAnItemOfAReference) {
    Com::Variant inner(5);
    VARIANT toVariant{};
    toVariant.vt = VT_BYREF | VT_VARIANT;
    toVariant.pvarVal = &inner.Get();
    VARIANT key = TextValue(u"a").Detach();
    EXPECT_EQ(Dictionary().Add(&key, &toVariant), S_OK);
    inner = Com::Variant(6);
    EXPECT_EQ(Get(TextValue(u"a")), "Long 5") << "a copy of that moment";
    ::VariantClear(&key);
}

TEST_P(DictionaryContract, KeepsItemsOfEveryType) {
    const auto object = Com::MakeObject<ValueObject>(Com::Variant(1));
    for (const Com::Variant& item :
         {Com::Variant(), Bare(VT_NULL), Com::Variant(true), Typed(VT_UI1, 1), Typed(VT_I2, 2),
          Com::Variant(3), Typed(VT_R4, 0.5), Com::Variant(0.25), Typed(VT_CY, 1.5),
          Typed(VT_DATE, 2.5), Typed(VT_DECIMAL, 3.5), TextValue(u"text"),
          TextValue(TextView(u"a\0b", 3)), object->AsVariant(),
          Com::Variant(static_cast<IDispatch*>(nullptr)), Bare(VT_ERROR)}) {
        EXPECT_EQ(Put(TextValue(u"key"), item), S_OK) << Describe(item);
        EXPECT_EQ(Get(TextValue(u"key")), Describe(item));
        EXPECT_EQ(Items(), Strings{Describe(item)});
    }
    EXPECT_EQ(Put(TextValue(u"key"), ArrayValue()), S_OK);
    EXPECT_EQ(Get(TextValue(u"key")), Describe(ArrayValue()));
}

TEST_P(DictionaryContract, GivesTheSameObjectBack) {
    const auto object = Com::MakeObject<ValueObject>(Com::Variant(1));
    EXPECT_EQ(Put(TextValue(u"key"), object->AsVariant()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(ItemOf(Object(), u"key").Get().pdispVal, object.Get()));
}

TEST_P(DictionaryContract, HashesKeysAsThePlatformDoes) {
    const auto platform = NewPlatformDictionary();
    ASSERT_EQ(platform->put_CompareMode(GetParam().CompareMode), S_OK);
    for (const Com::Variant& key :
         {TextValue(u""), TextValue(u"a"), TextValue(u"A"), TextValue(u"Temp"),
          TextValue(u"a rather long key with blanks"), TextValue(u"\u00E4"), Com::Variant(0),
          Com::Variant(1), Com::Variant(-1), Com::Variant(1201), Com::Variant(0.5),
          Com::Variant(1e300), Typed(VT_I2, 7), Typed(VT_R4, 2.5), Typed(VT_UI1, 3)}) {
        Com::Variant expected;
        VARIANT argument = key.Get();
        ASSERT_EQ(platform->get_HashVal(&argument, expected.Put()), S_OK) << Describe(key);
        EXPECT_EQ(Hash(key), Describe(expected)) << Describe(key);
    }
    EXPECT_EQ(Hash(TextValue(u"abc")) == Hash(TextValue(u"ABC")), IgnoresCase());
}

TEST_P(DictionaryContract, HoldsThousandsOfEntries) {
    constexpr int Many = 5000;
    for (int i = 0; i < Many; ++i) {
        ASSERT_EQ(Add(TextValue(u"key" + Widen(std::to_string(i))), Com::Variant(i)), S_OK);
    }
    EXPECT_EQ(Count(), Many);
    EXPECT_EQ(Get(TextValue(u"key4321")), "Long 4321");
    for (int i = 0; i < Many; i += 2) {
        ASSERT_EQ(Remove(TextValue(u"key" + Widen(std::to_string(i)))), S_OK);
    }
    EXPECT_EQ(Count(), Many / 2);
    EXPECT_EQ(Keys().front(), "String key1");
    EXPECT_EQ(Keys().back(), "String key4999");
}

TEST_P(DictionaryContract, LetsGoOfWhatItHeld) {
    const auto object = Com::MakeObject<ValueObject>(Com::Variant(1));
    const auto references = [&object] {
        object->AddRef();
        return object->Release();
    };
    const ULONG before = references();
    const std::function<void()> drops[] = {
        [&] { EXPECT_EQ(Remove(TextValue(u"key")), S_OK); },
        [&] { EXPECT_EQ(Dictionary().RemoveAll(), S_OK); },
        [&] { EXPECT_EQ(Put(TextValue(u"key"), Com::Variant()), S_OK); },
    };
    for (const auto& drop : drops) {
        EXPECT_EQ(Put(TextValue(u"key"), object->AsVariant()), S_OK);
        EXPECT_EQ(references(), before + 1);
        drop();
        EXPECT_EQ(references(), before);
    }
}

} // namespace
} // namespace Quorvane
