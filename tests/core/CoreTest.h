// SPDX-License-Identifier: MIT
// What the tests of the core have in common.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <concepts>
#include <cstdint>
#include <ostream>

#include "shared/Definition.h"

namespace Quorvane {

/// Starts and ends every test with the state of a new process.
class CoreTest : public testing::Test {
  protected:
    CoreTest() { Definition::Reset(); }
    ~CoreTest() override { Definition::Reset(); }
};

/// Stores plain definition texts, encoded, in the process.
void StoreTexts(TextView inputs, TextView outputs, TextView rules);

/// Stores and parses plain definition texts.
void Parse(TextView inputs, TextView outputs, TextView rules);

/// What a host sees of an error.
struct RaisedError {
    std::uint32_t Number;
    Text Source;
    Text Description;

    friend bool operator==(const RaisedError&, const RaisedError&) = default;
    friend void PrintTo(const RaisedError& error, std::ostream* stream);
};

/// An error of the platform, which the host words.
inline RaisedError PlatformError(RuntimeError error) {
    return {static_cast<std::uint32_t>(error), u"", u""};
}

inline const RaisedError InvalidInputSignal{0x8004004F, u"Quorvane Controller",
                                            u"Invalid linguistic input signal."};
inline const RaisedError InvalidInputVariable{0x80040050, u"Quorvane Controller",
                                              u"Invalid linguistic input variable."};
inline const RaisedError InvalidOutputVariable{0x80040051, u"Quorvane Controller",
                                               u"Invalid linguistict output variable."};
inline const RaisedError InvalidRule{0x80040052, u"Quorvane Controller",
                                     u"Invalid linguistict rule."};
inline const RaisedError InvalidInference{0x80040053, u"Quorvane Controller",
                                          u"Invalid Inference."};

/// The error that an action raises; none when it returns.
std::optional<RaisedError> Raised(const std::invocable auto& action) {
    try {
        action();
    } catch (const FisError& error) {
        return RaisedError{error.Number, error.Source, error.Description};
    }
    return std::nullopt;
}

inline const std::optional<RaisedError> Nothing;

/// Whether two Doubles are the same to the bit.
testing::AssertionResult SameBits(double expected, double actual);

/// Whether a value is this number, to the bit.
testing::AssertionResult IsNumber(double expected, const Value& actual);

/// Whether two values have the same type and content; numbers are compared to the bit.
testing::AssertionResult SameValue(const Value& expected, const Value& actual);

/// The keys of a dictionary in their order.
template <class Dictionary>
std::vector<Text> KeysOf(const Dictionary& dictionary) {
    std::vector<Text> keys;
    for (const auto& entry : dictionary) {
        keys.emplace_back(entry.Key);
    }
    return keys;
}

/// The pieces for 0, 1 and so on with the separator between them.
template <class MakePiece>
Text Listed(int count, char16_t separator, MakePiece makePiece) {
    Text list;
    for (int i = 0; i < count; ++i) {
        if (i > 0) {
            list += separator;
        }
        list += makePiece(Widen(std::to_string(i)));
    }
    return list;
}

inline std::string Narrow(TextView ascii) {
    std::string narrow;
    for (const char16_t character : ascii) {
        narrow += character < 0x80 ? static_cast<char>(character) : '?';
    }
    return narrow;
}

} // namespace Quorvane
