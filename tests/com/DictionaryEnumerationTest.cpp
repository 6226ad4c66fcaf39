// SPDX-License-Identifier: MIT
// For Each over a dictionary.
#include "tests/com/support/DictionaryContract.h"

namespace Quorvane {
namespace {

using Strings = std::vector<std::string>;

class DictionaryEnumeration : public DictionaryContract {};

INSTANTIATE_TEST_SUITE_P(Of, DictionaryEnumeration, testing::ValuesIn(DictionaryKinds),
                         testing::PrintToStringParamName());

TEST_P(DictionaryEnumeration, GivesTheKeysInTheirOrder) {
    AddThree();
    EXPECT_EQ(Add(Com::Variant(4), Com::Variant(4)), S_OK);
    EXPECT_EQ(Rest(*Enumerate()), (Strings{"String one", "String two", "String three", "Long 4"}));
}

TEST_P(DictionaryEnumeration, GivesSeveralAtOnce) {
    AddThree();
    const auto enumerator = Enumerate();
    VARIANT keys[4]{};
    ULONG fetched = 9;
    EXPECT_EQ(enumerator->Next(2, keys, &fetched), S_OK);
    EXPECT_EQ(fetched, 2u);
    EXPECT_EQ(Describe(keys[0]), "String one");
    EXPECT_EQ(Describe(keys[1]), "String two");
    ::VariantClear(&keys[0]);
    ::VariantClear(&keys[1]);
    EXPECT_EQ(enumerator->Next(2, keys, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 1u);
    EXPECT_EQ(Describe(keys[0]), "String three");
    ::VariantClear(&keys[0]);
    EXPECT_EQ(enumerator->Next(1, keys, nullptr), S_FALSE) << "a count may be left out";
}

TEST_P(DictionaryEnumeration, StartsAgain) {
    AddThree();
    const auto enumerator = Enumerate();
    EXPECT_EQ(Rest(*enumerator).size(), 3u);
    EXPECT_EQ(enumerator->Reset(), S_OK);
    EXPECT_EQ(Rest(*enumerator), (Strings{"String one", "String two", "String three"}));
}

TEST_P(DictionaryEnumeration, GivesClonesThatGoTheirOwnWay) {
    AddThree();
    const auto enumerator = Enumerate();
    Com::ComPtr<IEnumVARIANT> clone;
    EXPECT_EQ(enumerator->Clone(clone.Put()), S_OK);
    ASSERT_TRUE(clone);
    EXPECT_EQ(Rest(*clone), (Strings{"String one", "String two", "String three"}));
    EXPECT_EQ(Rest(*enumerator), (Strings{"String one", "String two", "String three"}))
        << "the two are independent";
}

TEST_P(DictionaryEnumeration, TakesChangesOfItemsMeanwhile) {
    AddThree();
    const auto enumerator = Enumerate();
    Strings keys;
    Com::Variant key;
    while (enumerator->Next(1, key.Put(), nullptr) == S_OK) {
        keys.push_back(Describe(key));
        EXPECT_EQ(Put(key, Com::Variant(0)), S_OK);
    }
    EXPECT_EQ(keys, (Strings{"String one", "String two", "String three"}));
    EXPECT_EQ(Items(), (Strings{"Long 0", "Long 0", "Long 0"}));
}

} // namespace
} // namespace Quorvane
