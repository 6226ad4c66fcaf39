// SPDX-License-Identifier: MIT
// The bytes of a file.
#pragma once

#include <fstream>
#include <string>

#include "qfis/Console.h"
#include "qfis/Files.h"

namespace Quorvane::Qfis {

class FileSource final : public ByteSource {
  public:
    /// Throws InputError where the file cannot be read.
    explicit FileSource(const std::string& path) : file_(PathOf(path), std::ios::binary) {
        std::error_code error;
        size_ = static_cast<std::size_t>(std::filesystem::file_size(PathOf(path), error));
        if (!file_ || error) {
            throw InputError(path, {}, "the file cannot be read");
        }
    }

    std::size_t Read(char* bytes, std::size_t count) override {
        file_.read(bytes, static_cast<std::streamsize>(count));
        return static_cast<std::size_t>(file_.gcount());
    }

    std::size_t Size() const { return size_; }

  private:
    std::ifstream file_;
    std::size_t size_ = 0;
};

} // namespace Quorvane::Qfis
