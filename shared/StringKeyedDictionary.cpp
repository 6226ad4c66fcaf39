// SPDX-License-Identifier: MIT
// Hashing and comparing of dictionary keys.
#include "shared/StringKeyedDictionary.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <random>

namespace Quorvane {
namespace {

using HashKey = std::array<std::uint64_t, 2>;

/// One of the process's own, so that nobody can write a definition text whose keys all collide.
const HashKey& SecretKey() {
    static const HashKey key = [] {
        std::random_device random;
        const auto word = [&random] { return std::uint64_t{random()} << 32U | random(); };
        return HashKey{word(), word()};
    }();
    return key;
}

/// SipHash-1-3: one round for each word of the text, three at the end.
class SipHash {
  public:
    explicit SipHash(const HashKey& key) noexcept
        : v0_(key[0] ^ 0x736f6d6570736575U), v1_(key[1] ^ 0x646f72616e646f6dU),
          v2_(key[0] ^ 0x6c7967656e657261U), v3_(key[1] ^ 0x7465646279746573U) {}

    void Add(std::uint64_t word) noexcept {
        v3_ ^= word;
        Round();
        v0_ ^= word;
    }

    std::uint64_t Finish() noexcept {
        v2_ ^= 0xffU;
        Round();
        Round();
        Round();
        return v0_ ^ v1_ ^ v2_ ^ v3_;
    }

  private:
    void Round() noexcept {
        v0_ += v1_;
        v2_ += v3_;
        v1_ = std::rotl(v1_, 13) ^ v0_;
        v3_ = std::rotl(v3_, 16) ^ v2_;
        v0_ = std::rotl(v0_, 32);
        v2_ += v1_;
        v0_ += v3_;
        v1_ = std::rotl(v1_, 17) ^ v2_;
        v3_ = std::rotl(v3_, 21) ^ v0_;
        v2_ = std::rotl(v2_, 32);
    }

    std::uint64_t v0_;
    std::uint64_t v1_;
    std::uint64_t v2_;
    std::uint64_t v3_;
};

constexpr std::size_t UnitsPerWord = sizeof(std::uint64_t) / sizeof(char16_t);

/// The units at the end of a text that do not fill a word.
std::uint64_t WordOfLast(const char16_t* units, std::size_t count) noexcept {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < count; ++i) {
        word = word << 16U | units[i];
    }
    return word;
}

/// The same for every unit of a word.
constexpr std::uint64_t EachUnit(std::uint64_t unit) {
    return unit * 0x0001000100010001U;
}

/// FoldCase of all units of a word.
std::uint64_t FoldWord(std::uint64_t word) noexcept {
    if ((word & EachUnit(0xFF80)) == 0) {
        // ASCII: adding carries into bit 7 of a unit from "a" on, and from behind "z" on.
        const std::uint64_t fromA = word + EachUnit(0x80 - u'a');
        const std::uint64_t beyondZ = word + EachUnit(0x7F - u'z');
        return word - ((fromA ^ beyondZ) & EachUnit(0x80)) / 4;
    }
    std::uint64_t folded = 0;
    for (std::size_t bit = 0; bit < 64; bit += 16) {
        folded |= std::uint64_t{FoldCase(static_cast<char16_t>(word >> bit))} << bit;
    }
    return folded;
}

template <class Fold>
std::size_t Hash(TextView key, Fold fold) noexcept {
    SipHash hash(SecretKey());
    const std::size_t left = key.size() % UnitsPerWord;
    const char16_t* const end = key.data() + (key.size() - left);
    for (const char16_t* units = key.data(); units != end; units += UnitsPerWord) {
        std::uint64_t word = 0;
        std::memcpy(&word, units, sizeof word);
        hash.Add(fold(word));
    }
    // The length tells the last word's units from leading zeros.
    hash.Add(fold(WordOfLast(end, left)) | std::uint64_t{key.size()} << 48U);
    return static_cast<std::size_t>(hash.Finish());
}

} // namespace

std::size_t KeyHash::operator()(TextView key) const {
    return Comparison == KeyComparison::Exact ? Hash(key, [](std::uint64_t word) { return word; })
                                              : Hash(key, FoldWord);
}

bool KeyEqual::operator()(TextView left, TextView right) const noexcept {
    if (Comparison == KeyComparison::Exact || left == right) {
        return left == right;
    }
    return std::ranges::equal(left, right, {}, FoldCase, FoldCase);
}

} // namespace Quorvane
