// SPDX-License-Identifier: MIT
// Random choices that are the same on every platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Quorvane::Reference {

/// Where choices come from. The standard library's distributions differ between platforms, so all
/// choices are made here, from integers.
class Choices {
  public:
    Choices() = default;
    Choices(const Choices&) = delete;
    Choices& operator=(const Choices&) = delete;
    virtual ~Choices() = default;

    /// A number from 0 to limit - 1; 0 for a limit of 0 or 1.
    virtual std::uint32_t Below(std::uint32_t limit) = 0;

    /// 64 bits.
    virtual std::uint64_t Bits() = 0;

    /// True for so many of a hundred choices.
    bool Percent(std::uint32_t share) { return Below(100) < share; }

    /// A number from first to last.
    std::int32_t Between(std::int32_t first, std::int32_t last) {
        return first +
               static_cast<std::int32_t>(Below(static_cast<std::uint32_t>(last - first) + 1));
    }

    template <class T>
    const T& Pick(const std::vector<T>& from) {
        return from[Below(static_cast<std::uint32_t>(from.size()))];
    }
};

/// The choices that follow from a seed (SplitMix64).
class Random final : public Choices {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint32_t Below(std::uint32_t limit) override {
        return limit < 2 ? 0 : static_cast<std::uint32_t>((Bits() >> 32) % limit);
    }

    std::uint64_t Bits() override {
        state_ += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        return mixed ^ (mixed >> 31);
    }

  private:
    std::uint64_t state_;
};

/// The choices that a fuzzer's input spells, byte by byte; 0 once the input has been read.
class SpelledChoices final : public Choices {
  public:
    explicit SpelledChoices(std::span<const std::uint8_t> input) : input_(input) {}

    bool AtEnd() const { return input_.empty(); }

    std::uint32_t Below(std::uint32_t limit) override {
        if (limit < 2) {
            return 0;
        }
        std::uint32_t number = Byte();
        for (std::uint32_t reach = 0x100; reach != 0 && reach < limit; reach <<= 8) {
            number = number << 8 | Byte();
        }
        return number % limit;
    }

    std::uint64_t Bits() override {
        std::uint64_t bits = 0;
        for (int i = 0; i < 8; ++i) {
            bits = bits << 8 | Byte();
        }
        return bits;
    }

  private:
    std::uint8_t Byte() {
        if (input_.empty()) {
            return 0;
        }
        const std::uint8_t byte = input_.front();
        input_ = input_.subspan(1);
        return byte;
    }

    std::span<const std::uint8_t> input_;
};

} // namespace Quorvane::Reference
