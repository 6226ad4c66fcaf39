// SPDX-License-Identifier: MIT
// The form program under test, worked from outside.
#include "tests/form/FormTest.h"

#include <fstream>
#include <iterator>

namespace Quorvane {

namespace {

/// The control is in the registry while the tests run, as it is for any program that hosts it.
class RegisteredControl final : public testing::Environment {
  public:
    void SetUp() override { RegisterControl(true); }
    void TearDown() override { RegisterControl(false); }
};

[[maybe_unused]] const testing::Environment* const registered =
    testing::AddGlobalTestEnvironment(new RegisteredControl);

} // namespace

FormTest::FormTest()
    // The system's folder for temporary files is hidden from folder dialogs.
    : folder_(OwnFolder() / (L"form-" + std::to_wstring(GetCurrentProcessId()))) {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
}

FormTest::~FormTest() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::wstring FormTest::RunArguments(const std::filesystem::path& form) const {
    return L"--output \"" + folder_.wstring() + L"\" \"" + form.wstring() + L"\"";
}

std::wstring FormTest::DesignArguments(const std::filesystem::path& form) const {
    return L"--design " + RunArguments(form);
}

std::string FormTest::ContentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::wstring GridValue(const FormProgram& program, const std::wstring& property) {
    HWND const list = Child(program.PropertyGrid(), Id::GridList);
    return Cell(list, RowOf(list, property), 1);
}

} // namespace Quorvane
