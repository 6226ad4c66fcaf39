// SPDX-License-Identifier: MIT
// An empty folder of a test's own.
#include "tests/com/support/TestFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "com/Scoped.h"

namespace Quorvane {
namespace {

/// A path that no other folder of this process has, and no other process gives.
std::filesystem::path FreshPath(TextView name) {
    static int count = 0;
    const std::wstring number =
        std::to_wstring(::GetCurrentProcessId()) + L"." + std::to_wstring(++count);
    return std::filesystem::temp_directory_path() /
           (L"quorvane " + number + L" " + std::wstring(Com::Wide(Text(name))));
}

} // namespace

TestFolder::TestFolder(TextView name) : path_(FreshPath(name)) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
}

TestFolder::~TestFolder() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(path_, ignored)) {
        ::SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    std::filesystem::remove_all(path_, ignored);
    EXPECT_FALSE(std::filesystem::exists(path_)) << "a file in it is still open";
}

Text TestFolder::Path() const {
    Text path = Com::ToText(path_.wstring().c_str());
    std::ranges::replace(path, u'/', u'\\');
    return path;
}

std::string TestFolder::Read(std::string_view name) const {
    std::ifstream stream(File(name), std::ios::binary);
    EXPECT_TRUE(stream) << name;
    return {std::istreambuf_iterator<char>(stream), {}};
}

void TestFolder::Write(std::string_view name, std::string_view bytes) const {
    std::ofstream stream(File(name), std::ios::binary);
    stream << bytes;
    EXPECT_TRUE(stream.flush()) << name;
}

std::vector<std::string> TestFolder::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

} // namespace Quorvane
