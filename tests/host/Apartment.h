// SPDX-License-Identifier: MIT
// Apartment: a test whose thread has COM.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <ole2.h>

namespace Quorvane::Host {

class InApartment : public testing::Test {
  protected:
    InApartment() { EXPECT_TRUE(SUCCEEDED(::OleInitialize(nullptr))); }
    ~InApartment() override { OleUninitialize(); }
};

} // namespace Quorvane::Host
