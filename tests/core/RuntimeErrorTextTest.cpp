// SPDX-License-Identifier: MIT
// Tests of the words for the platform's run-time errors.
#include "text/RuntimeErrorText.h"

#include "tests/core/CoreTest.h"

namespace Quorvane::Main {
namespace {

class RuntimeErrorTextTest : public CoreTest {};

TEST_F(RuntimeErrorTextTest, SaysTheErrorAndItsNumberInTheCurrentLanguage) {
    EXPECT_EQ(RuntimeErrorText(0x800A0006), u"Overflow (6)");
    EXPECT_EQ(RuntimeErrorText(FisError(RuntimeError::MissingKey).Number),
              u"Element not found (32811)");
    Definition::State().LanguageId = 2052;
    EXPECT_EQ(RuntimeErrorText(0x800A017E), u"运行时不能设置 (382)");
}

TEST_F(RuntimeErrorTextTest, HasWordsForWhateverTheCoreRaises) {
    for (const RuntimeError error :
         {RuntimeError::InvalidCall, RuntimeError::Overflow, RuntimeError::SubscriptOutOfRange,
          RuntimeError::TypeMismatch, RuntimeError::ObjectNotSet, RuntimeError::DuplicateKey,
          RuntimeError::MissingKey}) {
        EXPECT_NE(RuntimeErrorText(FisError(error).Number), u"");
    }
}

TEST_F(RuntimeErrorTextTest, SaysNothingOfOtherCodes) {
    EXPECT_EQ(RuntimeErrorText(0x80040006), u"");
    EXPECT_EQ(RuntimeErrorText(6), u"");
    EXPECT_EQ(UnknownErrorText(-2147467259), u"Error -2147467259");
    Definition::State().LanguageId = 2052;
    EXPECT_EQ(UnknownErrorText(-5), u"错误 -5");
}

} // namespace
} // namespace Quorvane::Main
