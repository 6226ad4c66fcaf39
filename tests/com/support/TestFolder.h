// SPDX-License-Identifier: MIT
// An empty folder of a test's own.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "shared/Text.h"

namespace Quorvane {

/// A new folder in the folder for temporary files, deleted with all that is in it at its end.
class TestFolder {
  public:
    /// `name` is the last part of its name; the process and a number go before it.
    explicit TestFolder(TextView name = u"folder");
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    /// The full path, without a backslash at its end.
    Text Path() const;
    std::filesystem::path File(std::string_view name) const { return path_ / name; }

    /// The bytes of a file. A file that is missing, or that another handle keeps from being read,
    /// fails the test.
    std::string Read(std::string_view name) const;
    void Write(std::string_view name, std::string_view bytes) const;

    /// The names of what is in the folder, in alphabetical order.
    std::vector<std::string> Names() const;

  private:
    std::filesystem::path path_;
};

} // namespace Quorvane
