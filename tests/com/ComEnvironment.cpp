// SPDX-License-Identifier: MIT
// Puts the thread of the tests into a single-threaded apartment for the whole run.
#include <windows.h>

#include <objbase.h>

#include <gtest/gtest.h>

namespace {

class ComEnvironment final : public testing::Environment {
  public:
    void SetUp() override { ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
    void TearDown() override { ::CoUninitialize(); }
};

[[maybe_unused]] const auto* const environment =
    testing::AddGlobalTestEnvironment(new ComEnvironment);

} // namespace
