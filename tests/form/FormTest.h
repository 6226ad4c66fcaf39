// SPDX-License-Identifier: MIT
// The form program under test, worked from outside.
#pragma once

#include "tests/form/driving/FormProgram.h"
#include "tests/form/driving/Hands.h"
#include "tests/form/driving/Ids.h"
#include "tests/form/driving/PageHands.h"
#include "tests/form/driving/Wait.h"

#include <gtest/gtest.h>

namespace Quorvane {

using namespace Driving;

/// Gives each test a folder of its own, which goes with the test.
class FormTest : public testing::Test {
  protected:
    FormTest();
    ~FormTest() override;

    const std::filesystem::path& Folder() const { return folder_; }

    /// The arguments that start the program on a form; batch files are offered the test's folder.
    std::wstring RunArguments(const std::filesystem::path& form) const;
    std::wstring DesignArguments(const std::filesystem::path& form) const;

    /// What is in a text file.
    static std::string ContentOf(const std::filesystem::path& path);

  private:
    std::filesystem::path folder_;
};

/// The text of a cell of the property grid, by the name of the property.
std::wstring GridValue(const FormProgram& program, const std::wstring& property);

} // namespace Quorvane
