// SPDX-License-Identifier: MIT
// The files that commands read and write.
#include "qfis/Files.h"

#include <fstream>
#include <system_error>

namespace Quorvane::Qfis {
namespace {

constexpr std::uintmax_t LargestFile = std::uintmax_t{256} << 20;

} // namespace

std::string InputError::Line() const {
    std::string line = File.empty() ? "" : File + ':';
    if (Where.Line != 0) {
        line += std::to_string(Where.Line) + ':';
    }
    if (Where.Column != 0) {
        line += std::to_string(Where.Column) + ':';
    }
    return line + (line.empty() ? "" : " ") + what();
}

std::filesystem::path PathOf(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(PathOf(path), std::ios::binary);
    std::error_code error;
    const auto size = std::filesystem::file_size(PathOf(path), error);
    if (!file || error) {
        throw InputError(path, {}, "the file cannot be read");
    }
    if (size > LargestFile) {
        throw InputError(path, {}, "the file is larger than 256 MB");
    }
    std::string content(static_cast<std::size_t>(size), '\0');
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(file.gcount()));
    return content;
}

void WriteFile(const std::string& path, const std::string& content) {
    const std::filesystem::path target = PathOf(path);
    std::filesystem::path fresh = target;
    fresh += ".new";
    std::ofstream file(fresh, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    std::error_code error;
    if (file) {
        std::filesystem::rename(fresh, target, error);
    }
    if (!file || error) {
        std::filesystem::remove(fresh, error);
        throw InputError(path, {}, "the file cannot be written");
    }
}

System::FuzzySystem LoadSystem(const std::string& path, const std::string& control) {
    const std::string content = ReadFile(path);
    const auto extension = PathOf(path).extension().u8string();
    const auto format = Formats::FormatOf(content, std::string(extension.begin(), extension.end()));
    try {
        return Formats::ReadSystem(content, format, control);
    } catch (const Formats::FormatError& error) {
        throw InputError(path, error.Where, error.what());
    }
}

} // namespace Quorvane::Qfis
