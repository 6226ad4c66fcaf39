// SPDX-License-Identifier: MIT
// Hashing and comparing of dictionary keys.
#include "shared/StringKeyedDictionary.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

namespace Quorvane {
namespace {

/// Hashes are computed in words of the machine.
using Word = std::size_t;
using HashKey = std::array<Word, 2>;

constexpr int WordBits = std::numeric_limits<Word>::digits;
constexpr int UnitBits = 16;
constexpr std::size_t UnitsPerWord = WordBits / UnitBits;

/// One of the process's own, so that nobody can write a definition text whose keys all collide.
const HashKey& SecretKey() {
    static const HashKey key = [] {
        std::random_device random;
        const auto word = [&random] {
            return static_cast<Word>(std::uint64_t{random()} << 32U | random());
        };
        return HashKey{word(), word()};
    }();
    return key;
}

/// What SipHash and HalfSipHash begin with, and turn by in each round.
struct SipNumbers {
    std::array<std::uint64_t, 4> Start;
    std::array<int, 6> Turns;
};

/// SipHash works on words of 64 bits, HalfSipHash on words of 32.
constexpr SipNumbers Sip = WordBits == 64
                               ? SipNumbers{{0x736f6d6570736575, 0x646f72616e646f6d,
                                             0x6c7967656e657261, 0x7465646279746573},
                                            {13, 32, 16, 21, 17, 32}}
                               : SipNumbers{{0, 0, 0x6c796765, 0x74656462}, {5, 16, 8, 7, 13, 16}};

/// SipHash-1-3 on words of the machine: one round for each word of the text, three at the end.
class SipHash {
  public:
    explicit SipHash(const HashKey& key) noexcept
        : v0_(key[0] ^ Start(0)), v1_(key[1] ^ Start(1)), v2_(key[0] ^ Start(2)),
          v3_(key[1] ^ Start(3)) {}

    void Add(Word word) noexcept {
        v3_ ^= word;
        Round();
        v0_ ^= word;
    }

    Word Finish() noexcept {
        v2_ ^= 0xffU;
        Round();
        Round();
        Round();
        return WordBits == 64 ? v0_ ^ v1_ ^ v2_ ^ v3_ : v1_ ^ v3_;
    }

  private:
    static constexpr Word Start(std::size_t place) { return static_cast<Word>(Sip.Start[place]); }

    void Round() noexcept {
        v0_ += v1_;
        v1_ = std::rotl(v1_, Sip.Turns[0]) ^ v0_;
        v0_ = std::rotl(v0_, Sip.Turns[1]);
        v2_ += v3_;
        v3_ = std::rotl(v3_, Sip.Turns[2]) ^ v2_;
        v0_ += v3_;
        v3_ = std::rotl(v3_, Sip.Turns[3]) ^ v0_;
        v2_ += v1_;
        v1_ = std::rotl(v1_, Sip.Turns[4]) ^ v2_;
        v2_ = std::rotl(v2_, Sip.Turns[5]);
    }

    Word v0_;
    Word v1_;
    Word v2_;
    Word v3_;
};

/// The units at the end of a text that do not fill a word.
Word WordOfLast(const char16_t* units, std::size_t count) noexcept {
    Word word = 0;
    for (std::size_t i = 0; i < count; ++i) {
        word = word << UnitBits | units[i];
    }
    return word;
}

/// The same for every unit of a word.
constexpr Word EachUnit(Word unit) {
    return unit * static_cast<Word>(0x0001000100010001U);
}

/// FoldCase of all units of a word.
Word FoldWord(Word word) noexcept {
    if ((word & EachUnit(0xFF80)) == 0) {
        // ASCII: adding carries into bit 7 of a unit from "a" on, and from behind "z" on.
        const Word fromA = word + EachUnit(0x80 - u'a');
        const Word beyondZ = word + EachUnit(0x7F - u'z');
        return word - ((fromA ^ beyondZ) & EachUnit(0x80)) / 4;
    }
    Word folded = 0;
    for (int bit = 0; bit < WordBits; bit += UnitBits) {
        folded |= Word{FoldCase(static_cast<char16_t>(word >> bit))} << bit;
    }
    return folded;
}

template <class Fold>
std::size_t Hash(TextView key, Fold fold) noexcept {
    SipHash hash(SecretKey());
    const std::size_t left = key.size() % UnitsPerWord;
    const char16_t* const end = key.data() + (key.size() - left);
    for (const char16_t* units = key.data(); units != end; units += UnitsPerWord) {
        Word word = 0;
        std::memcpy(&word, units, sizeof word);
        hash.Add(fold(word));
    }
    // The length tells the last word's units from leading zeros.
    hash.Add(fold(WordOfLast(end, left)) | Word{key.size()} << (WordBits - UnitBits));
    return hash.Finish();
}

} // namespace

std::size_t KeyHash::operator()(TextView key) const {
    return Comparison == KeyComparison::Exact ? Hash(key, [](Word word) { return word; })
                                              : Hash(key, FoldWord);
}

bool KeyEqual::operator()(TextView left, TextView right) const noexcept {
    if (Comparison == KeyComparison::Exact || left == right) {
        return left == right;
    }
    return std::ranges::equal(left, right, {}, FoldCase, FoldCase);
}

} // namespace Quorvane
