// SPDX-License-Identifier: MIT
// What the tests of the core have in common.
#include "tests/core/CoreTest.h"

#include <ios>

#include "model/ParseDefinition.h"
#include "model/TransformText.h"

namespace Quorvane {

void StoreTexts(TextView inputs, TextView outputs, TextView rules) {
    Definition::State().InputsText = Main::TransformText(inputs, true);
    Definition::State().OutputsText = Main::TransformText(outputs, true);
    Definition::State().RulesText = Main::TransformText(rules, true);
}

void Parse(TextView inputs, TextView outputs, TextView rules) {
    StoreTexts(inputs, outputs, rules);
    Main::ParseDefinition();
}

void PrintTo(const RaisedError& error, std::ostream* stream) {
    *stream << "error " << std::hex << error.Number << std::dec << " from \""
            << Narrow(error.Source) << "\": \"" << Narrow(error.Description) << '"';
}

testing::AssertionResult SameBits(double expected, double actual) {
    if (std::bit_cast<std::uint64_t>(expected) == std::bit_cast<std::uint64_t>(actual)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << std::hexfloat << "expected " << expected << ", is "
                                       << actual << std::defaultfloat << " (" << actual << ')';
}

testing::AssertionResult IsNumber(double expected, const Value& actual) {
    return SameValue(expected, actual);
}

testing::AssertionResult SameValue(const Value& expected, const Value& actual) {
    const double* const left = std::get_if<double>(&expected);
    const double* const right = std::get_if<double>(&actual);
    if (left && right) {
        return SameBits(*left, *right);
    }
    if (expected == actual) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "expected value kind " << expected.index() << " \"" << Narrow(FixedText(expected))
           << "\", is kind " << actual.index() << " \"" << Narrow(FixedText(actual)) << '"';
}

} // namespace Quorvane
