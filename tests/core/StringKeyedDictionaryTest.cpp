// SPDX-License-Identifier: MIT
// Tests of the dictionary that the whole system is built on.
#include "shared/StringKeyedDictionary.h"

#include <map>
#include <memory>

#include "tests/core/CoreTest.h"

namespace Quorvane {
namespace {

using Numbers = StringKeyedDictionary<int>;
using Keys = std::vector<Text>;

constexpr KeyComparison BothComparisons[] = {KeyComparison::Exact, KeyComparison::IgnoreCase};

Numbers Make(KeyComparison comparison, std::initializer_list<TextView> keys) {
    Numbers numbers(comparison);
    int value = 0;
    for (const TextView key : keys) {
        numbers.Add(Text(key), ++value);
    }
    return numbers;
}

std::vector<int> ItemsOf(const Numbers& numbers) {
    std::vector<int> items;
    for (const auto& entry : numbers) {
        items.push_back(entry.Item);
    }
    return items;
}

TEST(StringKeyedDictionary, EnumeratesInTheOrderOfAdding) {
    for (const KeyComparison comparison : BothComparisons) {
        const Numbers numbers = Make(comparison, {u"z", u"a", u"m", u"", u"B"});
        EXPECT_EQ(KeysOf(numbers), (Keys{u"z", u"a", u"m", u"", u"B"}));
        EXPECT_EQ(ItemsOf(numbers), (std::vector{1, 2, 3, 4, 5}));
        EXPECT_EQ(numbers.Count(), 5U);
    }
}

TEST(StringKeyedDictionary, FailsToAddAKeyThatExistsAndChangesNothing) {
    struct Case {
        KeyComparison Comparison;
        const char16_t* Key;
        bool Fails;
    };
    const Case cases[] = {
        {KeyComparison::Exact, u"Temp", true},      {KeyComparison::Exact, u"temp", false},
        {KeyComparison::Exact, u"Temp ", false},    {KeyComparison::IgnoreCase, u"Temp", true},
        {KeyComparison::IgnoreCase, u"tEMP", true}, {KeyComparison::IgnoreCase, u"Tem", false},
        {KeyComparison::IgnoreCase, u"", false},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(Narrow(test.Key));
        Numbers numbers = Make(test.Comparison, {u"Temp", u"Rate"});
        const auto raised = Raised([&] { numbers.Add(test.Key, 9); });
        if (test.Fails) {
            EXPECT_EQ(raised, PlatformError(RuntimeError::DuplicateKey));
            EXPECT_EQ(KeysOf(numbers), (Keys{u"Temp", u"Rate"}));
            EXPECT_EQ(ItemsOf(numbers), (std::vector{1, 2}));
            EXPECT_EQ(numbers.At(test.Key), 1);
        } else {
            EXPECT_EQ(raised, Nothing);
            EXPECT_EQ(numbers.Count(), 3U);
            EXPECT_EQ(numbers.At(test.Key), 9);
        }
    }
}

TEST(StringKeyedDictionary, FindsKeysByItsComparison) {
    const Numbers exact = Make(KeyComparison::Exact, {u"Temp", u"temp"});
    EXPECT_EQ(exact.At(u"Temp"), 1);
    EXPECT_EQ(exact.At(u"temp"), 2);
    EXPECT_FALSE(exact.Exists(u"TEMP"));
    EXPECT_EQ(exact.Comparison(), KeyComparison::Exact);

    const Numbers folded = Make(KeyComparison::IgnoreCase, {u"Temp", u"\u00E4", u"\u0436"});
    EXPECT_EQ(folded.At(u"TEMP"), 1);
    EXPECT_EQ(folded.At(u"\u00C4"), 2);
    EXPECT_EQ(folded.At(u"\u0416"), 3);
    EXPECT_FALSE(folded.Exists(TextView(u"Temp\0", 5)));
    EXPECT_EQ(folded.Comparison(), KeyComparison::IgnoreCase);
}

TEST(StringKeyedDictionary, ReadingNeverAdds) {
    Numbers numbers = Make(KeyComparison::Exact, {u"a"});
    EXPECT_EQ(numbers.Find(u"b"), nullptr);
    EXPECT_EQ(std::as_const(numbers).Find(u"b"), nullptr);
    EXPECT_FALSE(numbers.Exists(u"b"));
    EXPECT_EQ(Raised([&] { numbers.At(u"b"); }), PlatformError(RuntimeError::MissingKey));
    EXPECT_EQ(Raised([&] { std::as_const(numbers).At(u"b"); }),
              PlatformError(RuntimeError::MissingKey));
    EXPECT_EQ(KeysOf(numbers), Keys{u"a"});
}

TEST(StringKeyedDictionary, PutReplacesInPlaceOrAddsAtTheEnd) {
    Numbers numbers = Make(KeyComparison::IgnoreCase, {u"a", u"b"});
    EXPECT_EQ(numbers.Put(u"A", 7), 7);
    EXPECT_EQ(numbers.Put(u"c", 8), 8);
    EXPECT_EQ(KeysOf(numbers), (Keys{u"a", u"b", u"c"}));
    EXPECT_EQ(ItemsOf(numbers), (std::vector{7, 2, 8}));
}

TEST(StringKeyedDictionary, RekeysInPlace) {
    for (const KeyComparison comparison : BothComparisons) {
        Numbers numbers = Make(comparison, {u"a", u"b", u"c"});
        numbers.Rekey(u"b", u"a name longer than any small buffer holds");
        EXPECT_EQ(KeysOf(numbers),
                  (Keys{u"a", u"a name longer than any small buffer holds", u"c"}));
        EXPECT_EQ(numbers.At(u"a name longer than any small buffer holds"), 2);
        EXPECT_FALSE(numbers.Exists(u"b"));
        numbers.Rekey(u"a name longer than any small buffer holds", u"x");
        EXPECT_EQ(KeysOf(numbers), (Keys{u"a", u"x", u"c"}));
        numbers.Add(u"b", 4);
        EXPECT_EQ(numbers.At(u"b"), 4);
    }
}

TEST(StringKeyedDictionary, FailsToRekeyWhatIsMissingOrToWhatExists) {
    for (const KeyComparison comparison : BothComparisons) {
        Numbers numbers = Make(comparison, {u"a", u"b"});
        EXPECT_EQ(Raised([&] { numbers.Rekey(u"x", u"y"); }),
                  PlatformError(RuntimeError::MissingKey));
        EXPECT_EQ(Raised([&] { numbers.Rekey(u"a", u"b"); }),
                  PlatformError(RuntimeError::DuplicateKey));
        EXPECT_EQ(KeysOf(numbers), (Keys{u"a", u"b"}));
        EXPECT_EQ(ItemsOf(numbers), (std::vector{1, 2}));
        EXPECT_EQ(numbers.At(u"a"), 1);
        EXPECT_EQ(numbers.At(u"b"), 2);
    }
}

TEST(StringKeyedDictionary, RekeyTakesAnEqualKeyAsItsNewSpelling) {
    Numbers numbers = Make(KeyComparison::IgnoreCase, {u"a", u"temp", u"c"});
    numbers.Rekey(u"TEMP", u"Temp");
    EXPECT_EQ(KeysOf(numbers), (Keys{u"a", u"Temp", u"c"}));
    EXPECT_EQ(numbers.At(u"temp"), 2);
    EXPECT_EQ(Raised([&] { numbers.Rekey(u"a", u"TEMP"); }),
              PlatformError(RuntimeError::DuplicateKey));

    Numbers exact = Make(KeyComparison::Exact, {u"temp", u"Temp"});
    EXPECT_EQ(Raised([&] { exact.Rekey(u"temp", u"Temp"); }),
              PlatformError(RuntimeError::DuplicateKey));
    exact.Rekey(u"temp", u"temp");
    EXPECT_EQ(KeysOf(exact), (Keys{u"temp", u"Temp"}));
}

TEST(StringKeyedDictionary, RekeysByAViewOfTheEntrysOwnKey) {
    Numbers numbers = Make(KeyComparison::IgnoreCase, {u"a", u"b"});
    const Text& own = numbers.begin()->Key;
    numbers.Rekey(own, own + u"2");
    EXPECT_EQ(KeysOf(numbers), (Keys{u"a2", u"b"}));
    EXPECT_EQ(numbers.At(u"A2"), 1);
}

TEST(StringKeyedDictionary, RemovesOneEntry) {
    Numbers numbers = Make(KeyComparison::IgnoreCase, {u"a", u"b", u"c"});
    numbers.Remove(u"B");
    EXPECT_EQ(KeysOf(numbers), (Keys{u"a", u"c"}));
    EXPECT_EQ(Raised([&] { numbers.Remove(u"b"); }), PlatformError(RuntimeError::MissingKey));
    numbers.Add(u"B", 9);
    EXPECT_EQ(KeysOf(numbers), (Keys{u"a", u"c", u"B"}));
    numbers.Remove(numbers.begin()->Key);
    EXPECT_EQ(KeysOf(numbers), (Keys{u"c", u"B"}));
}

TEST(StringKeyedDictionary, RemovesChosenEntriesAndAll) {
    Numbers numbers = Make(KeyComparison::Exact, {u"a", u"b", u"c", u"d"});
    numbers.RemoveIf([](const Numbers::Entry& entry) { return entry.Item % 2 == 1; });
    EXPECT_EQ(KeysOf(numbers), (Keys{u"b", u"d"}));
    EXPECT_FALSE(numbers.Exists(u"a"));
    numbers.RemoveIf([](const Numbers::Entry&) { return false; });
    EXPECT_EQ(numbers.Count(), 2U);
    numbers.RemoveAll();
    EXPECT_TRUE(numbers.Empty());
    EXPECT_EQ(numbers.begin(), numbers.end());
    numbers.Add(u"b", 1);
    EXPECT_EQ(numbers.Count(), 1U);
}

TEST(StringKeyedDictionary, ChangesItsComparisonOnlyWhileEmpty) {
    Numbers numbers(KeyComparison::Exact);
    numbers.SetComparison(KeyComparison::IgnoreCase);
    numbers.Add(u"a", 1);
    EXPECT_TRUE(numbers.Exists(u"A"));
    EXPECT_EQ(Raised([&] { numbers.SetComparison(KeyComparison::Exact); }),
              PlatformError(RuntimeError::InvalidCall));
    EXPECT_EQ(numbers.Comparison(), KeyComparison::IgnoreCase);
    EXPECT_TRUE(numbers.Exists(u"A"));
    numbers.RemoveAll();
    numbers.SetComparison(KeyComparison::Exact);
    numbers.Add(u"a", 1);
    EXPECT_FALSE(numbers.Exists(u"A"));
}

TEST(StringKeyedDictionary, CopiesAreIndependent) {
    Numbers original = Make(KeyComparison::IgnoreCase, {u"a", u"b"});
    Numbers copy(original);
    original.At(u"a") = 9;
    original.Remove(u"b");
    EXPECT_EQ(copy.Comparison(), KeyComparison::IgnoreCase);
    EXPECT_EQ(KeysOf(copy), (Keys{u"a", u"b"}));
    EXPECT_EQ(ItemsOf(copy), (std::vector{1, 2}));
    EXPECT_EQ(copy.At(u"B"), 2);

    Numbers assigned = Make(KeyComparison::Exact, {u"x", u"y"});
    assigned = copy;
    copy.RemoveAll();
    EXPECT_EQ(KeysOf(assigned), (Keys{u"a", u"b"}));
    EXPECT_EQ(assigned.At(u"A"), 1);
    EXPECT_FALSE(assigned.Exists(u"x"));

    const Numbers& same = assigned;
    assigned = same;
    EXPECT_EQ(KeysOf(assigned), (Keys{u"a", u"b"}));
}

TEST(StringKeyedDictionary, MovesWithItsEntriesInPlace) {
    Numbers original = Make(KeyComparison::IgnoreCase, {u"a", u"b"});
    const int* const item = original.Find(u"b");
    Numbers moved(std::move(original));
    EXPECT_EQ(moved.Find(u"B"), item);
    Numbers assigned(KeyComparison::Exact);
    assigned = std::move(moved);
    EXPECT_EQ(assigned.Find(u"B"), item);
    EXPECT_EQ(KeysOf(assigned), (Keys{u"a", u"b"}));
}

TEST(StringKeyedDictionary, PooledNodesMoveWithTheirPool) {
    using Pooled = StringKeyedDictionary<std::size_t, PooledNodes>;
    static constexpr std::size_t Count = 1000;
    // Some keys are short enough for their nodes, some lie in the pool, some are too long for it.
    const auto keyOf = [](const Text& stem, std::size_t i) {
        return stem + Widen(std::to_string(i)) + Text(3 * (i % 3) * i, u'.');
    };
    const auto fill = [&keyOf](Pooled& dictionary, const Text& stem) {
        for (std::size_t i = 0; i < Count; ++i) {
            dictionary.Add(keyOf(stem, i), i);
        }
    };
    const auto expectFilled = [&keyOf](const Pooled& dictionary, const Text& stem) {
        EXPECT_EQ(dictionary.Count(), Count);
        std::size_t i = 0;
        for (const auto& [key, item] : dictionary) {
            EXPECT_EQ(item, i);
            EXPECT_EQ(dictionary.Find(keyOf(stem, i)), &item);
            ++i;
        }
    };
    std::optional<Pooled> original(KeyComparison::Exact);
    fill(*original, u"a");
    const std::size_t* const item = original->Find(keyOf(u"a", 7));
    Pooled moved(std::move(*original));
    // What was moved from is usable, and ends without the other one.
    original->RemoveAll();
    fill(*original, u"b");
    expectFilled(*original, u"b");
    original.reset();
    EXPECT_EQ(moved.Find(keyOf(u"a", 7)), item);
    expectFilled(moved, u"a");

    // The entries of the one that is assigned to end with their pool.
    Pooled assigned(KeyComparison::IgnoreCase);
    fill(assigned, u"c");
    assigned = std::move(moved);
    EXPECT_EQ(assigned.Find(keyOf(u"a", 7)), item);
    expectFilled(assigned, u"a");
    assigned.Rekey(keyOf(u"a", 7), u"x7");
    assigned.Remove(keyOf(u"a", 8));
    EXPECT_EQ(assigned.Find(u"x7"), item);
    EXPECT_FALSE(assigned.Exists(keyOf(u"a", 7)));
    const TextView own = std::prev(assigned.end())->Key;
    const Text shortened(own.substr(1));
    assigned.Rekey(own, own.substr(1));
    EXPECT_EQ(assigned.At(shortened), Count - 1);
    EXPECT_EQ(TextView(std::prev(assigned.end())->Key), shortened);
    const Pooled copy(assigned);
    assigned.RemoveAll();
    fill(assigned, u"d");
    expectFilled(assigned, u"d");
    EXPECT_EQ(copy.Count(), Count - 1);
    EXPECT_EQ(copy.At(u"x7"), 7U);
}

TEST(StringKeyedDictionary, EntriesStayWhereTheyAreWhileOthersComeAndGo) {
    StringKeyedDictionary<std::unique_ptr<int>> dictionary(KeyComparison::Exact);
    const auto& item = dictionary.Add(u"kept", std::make_unique<int>(5));
    for (int i = 0; i < 1000; ++i) {
        dictionary.Add(Widen(std::to_string(i)), std::make_unique<int>(i));
    }
    for (int i = 0; i < 1000; ++i) {
        dictionary.Remove(Widen(std::to_string(i)));
    }
    EXPECT_EQ(&item, dictionary.Find(u"kept"));
    EXPECT_EQ(*item, 5);
}

TEST(StringKeyedDictionary, HoldsManyEntriesAndLosesThemInAnyOrder) {
    constexpr int Count = 20000;
    Numbers numbers(KeyComparison::IgnoreCase);
    for (int i = 0; i < Count; ++i) {
        numbers.Add(u"Key" + Widen(std::to_string(i)), i);
    }
    // 7919 is prime to the count, so this visits every key once.
    for (int i = 0; i < Count / 2; ++i) {
        numbers.Remove(u"kEY" + Widen(std::to_string(i * 7919 % Count)));
    }
    ASSERT_EQ(numbers.Count(), static_cast<std::size_t>(Count / 2));
    int last = -1;
    for (const auto& [key, item] : numbers) {
        EXPECT_LT(last, item);
        EXPECT_EQ(key, u"Key" + Widen(std::to_string(item)));
        last = item;
    }
    for (int i = 0; i < Count; ++i) {
        const int number = i * 7919 % Count;
        ASSERT_EQ(numbers.Exists(u"key" + Widen(std::to_string(number))), i >= Count / 2) << number;
    }
}

TEST(StringKeyedDictionary, KeysThatCompareEqualHashEqual) {
    const KeyHash hash{KeyComparison::IgnoreCase};
    const KeyEqual equal{KeyComparison::IgnoreCase};
    const auto keyOf = [](char16_t unit) { return u"Rule" + Text(3, unit) + u"a>" + unit; };
    for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const Text key = keyOf(static_cast<char16_t>(unit));
        const Text folded = keyOf(FoldCase(static_cast<char16_t>(unit)));
        ASSERT_TRUE(equal(key, folded)) << unit;
        ASSERT_EQ(hash(key), hash(folded)) << unit;
    }
    EXPECT_FALSE(equal(u"ab", u"a"));
    EXPECT_FALSE(equal(u"ab", u"ac"));
    EXPECT_FALSE((KeyEqual{KeyComparison::Exact}(u"ab", u"aB")));
}

TEST(StringKeyedDictionary, KeysThatDifferHashDifferentlyAlsoWhereOnlyOneIsALetter) {
    const KeyHash hash{KeyComparison::IgnoreCase};
    std::map<std::size_t, std::uint32_t> units;
    for (std::uint32_t unit = 0; unit < 0x200; ++unit) {
        const auto character = static_cast<char16_t>(unit);
        const std::uint32_t folded = FoldCase(character);
        const auto [known, isNew] = units.emplace(hash(Text(5, character)), folded);
        EXPECT_EQ(known->second, folded) << unit;
    }
}

/// A value whose end runs code that uses the dictionary it is in, as a script object's can.
struct Meddler {
    explicit Meddler(StringKeyedDictionary<std::shared_ptr<Meddler>>& dictionary)
        : Dictionary(dictionary) {}
    Meddler(const Meddler&) = delete;
    Meddler& operator=(const Meddler&) = delete;
    ~Meddler() {
        CountSeen = Dictionary.Count();
        if (Dictionary.Exists(u"a")) {
            Dictionary.Remove(u"a");
        }
        Dictionary.Put(u"late", nullptr);
    }

    StringKeyedDictionary<std::shared_ptr<Meddler>>& Dictionary;
    static inline std::size_t CountSeen = 0;
};

TEST(StringKeyedDictionary, SurvivesValuesWhoseEndUsesIt) {
    using Dictionary = StringKeyedDictionary<std::shared_ptr<Meddler>>;
    Dictionary removed(KeyComparison::Exact);
    removed.Add(u"a", std::make_shared<Meddler>(removed));
    removed.Remove(u"a");
    EXPECT_EQ(KeysOf(removed), Keys{u"late"});
    EXPECT_EQ(Meddler::CountSeen, 0U);

    Dictionary put(KeyComparison::Exact);
    put.Add(u"a", std::make_shared<Meddler>(put));
    put.Put(u"a", nullptr);
    EXPECT_EQ(KeysOf(put), Keys{u"late"});
    EXPECT_EQ(Meddler::CountSeen, 1U);

    Dictionary cleared(KeyComparison::Exact);
    cleared.Add(u"a", std::make_shared<Meddler>(cleared));
    cleared.Add(u"b", nullptr);
    cleared.RemoveAll();
    EXPECT_EQ(KeysOf(cleared), Keys{u"late"});
    EXPECT_EQ(Meddler::CountSeen, 0U);
}

} // namespace
} // namespace Quorvane
