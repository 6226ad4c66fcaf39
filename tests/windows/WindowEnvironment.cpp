// SPDX-License-Identifier: MIT
// Puts the thread of the tests into a single-threaded apartment for the whole run.
#include <windows.h>

#include <objbase.h>

#include <gtest/gtest.h>

namespace {

class WindowEnvironment final : public testing::Environment {
  public:
    void SetUp() override { ASSERT_EQ(::OleInitialize(nullptr), S_OK); }
    void TearDown() override { ::OleUninitialize(); }
};

[[maybe_unused]] const auto* const environment =
    testing::AddGlobalTestEnvironment(new WindowEnvironment);

} // namespace
