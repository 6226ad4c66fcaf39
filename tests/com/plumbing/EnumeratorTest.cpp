// SPDX-License-Identifier: MIT
// The enumerator template, over values, interfaces and connections.
#include "com/Enumerator.h"

#include "tests/com/plumbing/PlumbingTest.h"

namespace Quorvane {
namespace {

using Enumerator = PlumbingTest;
using VariantEnumerator = Com::Enumerator<IEnumVARIANT, VARIANT>;

Com::ComPtr<VariantEnumerator> Counting(int count) {
    std::vector<Com::Variant> items;
    for (int number = 1; number <= count; ++number) {
        items.emplace_back(number);
    }
    return Com::MakeObject<VariantEnumerator>(std::move(items));
}

/// The numbers that one call of Next gives.
std::vector<LONG> Take(IEnumVARIANT& enumerator, ULONG count, HRESULT expected) {
    std::vector<VARIANT> items(count);
    ULONG fetched = 99;
    EXPECT_EQ(enumerator.Next(count, items.data(), &fetched), expected);
    std::vector<LONG> numbers;
    for (ULONG index = 0; index < fetched; ++index) {
        numbers.push_back(Com::Variant::Attach(items[index]).Get().lVal);
    }
    return numbers;
}

TEST_F(Enumerator, GivesTheItemsInOrderAndSaysWhenTheyEnd) {
    const auto enumerator = Counting(3);
    EXPECT_EQ(Take(*enumerator, 2, S_OK), (std::vector<LONG>{1, 2}));
    EXPECT_EQ(Take(*enumerator, 2, S_FALSE), (std::vector<LONG>{3}));
    EXPECT_EQ(Take(*enumerator, 1, S_FALSE), std::vector<LONG>{});
    EXPECT_EQ(Take(*enumerator, 0, S_OK), std::vector<LONG>{});
}

TEST_F(Enumerator, SkipsAndStartsAgain) {
    const auto enumerator = Counting(3);
    EXPECT_EQ(enumerator->Skip(2), S_OK);
    EXPECT_EQ(Take(*enumerator, 1, S_OK), (std::vector<LONG>{3}));
    EXPECT_EQ(enumerator->Skip(1), S_FALSE);
    EXPECT_EQ(enumerator->Reset(), S_OK);
    EXPECT_EQ(enumerator->Skip(4), S_FALSE);
    EXPECT_EQ(enumerator->Reset(), S_OK);
    EXPECT_EQ(Take(*enumerator, 1, S_OK), (std::vector<LONG>{1}));
}

TEST_F(Enumerator, ClonesWithACursorOfItsOwn) {
    const auto enumerator = Counting(3);
    EXPECT_EQ(enumerator->Skip(1), S_OK);
    Com::ComPtr<IEnumVARIANT> clone;
    ASSERT_EQ(enumerator->Clone(clone.Put()), S_OK);
    EXPECT_EQ(Take(*clone, 3, S_FALSE), (std::vector<LONG>{2, 3}));
    EXPECT_EQ(Take(*enumerator, 1, S_OK), (std::vector<LONG>{2}));
    EXPECT_EQ(enumerator->Clone(nullptr), E_POINTER);
}

TEST_F(Enumerator, NeedsTheCountOfTheFetchedForMoreThanOne) {
    const auto enumerator = Counting(3);
    VARIANT items[2];
    EXPECT_EQ(enumerator->Next(1, items, nullptr), S_OK);
    EXPECT_EQ(items[0].lVal, 1);
    EXPECT_EQ(enumerator->Next(2, items, nullptr), E_POINTER);
    EXPECT_EQ(enumerator->Next(1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(Take(*enumerator, 1, S_OK), (std::vector<LONG>{2})) << "a refused call moves nothing";
}

TEST_F(Enumerator, HandsOutCopiesThatOutliveIt) {
    std::vector<Com::Variant> items;
    items.emplace_back(u"text");
    auto enumerator = Com::MakeObject<VariantEnumerator>(std::move(items));
    Com::Variant item;
    EXPECT_EQ(enumerator->Next(1, item.Put(), nullptr), S_OK);
    enumerator.Reset();
    EXPECT_EQ(Com::View(item.Get().bstrVal), u"text");
}

TEST_F(Enumerator, CountsAReferenceForEachInterface) {
    const auto trial = Com::MakeObject<Trial>();
    std::vector<Com::ComPtr<IUnknown>> items{trial->ControllingUnknown()};
    using ObjectEnumerator = Com::Enumerator<IEnumUnknown, IUnknown*>;
    auto enumerator = Com::MakeObject<ObjectEnumerator>(std::move(items));
    Com::ComPtr<IUnknown> item;
    EXPECT_EQ(enumerator->Next(1, item.Put(), nullptr), S_OK);
    enumerator.Reset();
    EXPECT_TRUE(Com::IsSameObject(item.Get(), trial->ControllingUnknown()));
}

} // namespace
} // namespace Quorvane
