// SPDX-License-Identifier: MIT
// FormFile: the property list, and form files on disk.
#include "host/formfile/FormFile.h"

#include "host/formfile/FilePath.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <system_error>

namespace Quorvane::Host {
namespace {

constexpr std::uintmax_t MaximumFileSize = 16U << 20;

char16_t Lower(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

template <class Items>
auto FindKey(Items& items, TextView key) {
    return std::find_if(items.begin(), items.end(),
                        [&](const FormProperty& item) { return SameName(item.Key, key); });
}

void RequireFilePath(const std::filesystem::path& path) {
    if (!IsFilePath(path)) {
        throw FormFileError(0, "the path has a zero character");
    }
}

} // namespace

FormProperties::FormProperties() = default;
FormProperties::FormProperties(const FormProperties&) = default;
FormProperties::FormProperties(FormProperties&&) noexcept = default;
FormProperties& FormProperties::operator=(const FormProperties&) = default;
FormProperties& FormProperties::operator=(FormProperties&&) noexcept = default;
FormProperties::~FormProperties() = default;

const FormProperty* FormProperties::Find(TextView key) const {
    const auto found = FindKey(items_, key);
    return found == items_.end() ? nullptr : &*found;
}

void FormProperties::Set(FormProperty property) {
    const auto found = FindKey(items_, property.Key);
    if (found == items_.end()) {
        items_.push_back(std::move(property));
    } else {
        *found = std::move(property);
    }
}

bool FormProperties::Remove(TextView key) {
    const auto found = FindKey(items_, key);
    if (found == items_.end()) {
        return false;
    }
    items_.erase(found);
    return true;
}

void FormProperties::Clear() {
    items_.clear();
}
std::size_t FormProperties::Count() const {
    return items_.size();
}
std::vector<FormProperty>::const_iterator FormProperties::begin() const {
    return items_.begin();
}
std::vector<FormProperty>::const_iterator FormProperties::end() const {
    return items_.end();
}
bool FormProperties::operator==(const FormProperties& other) const {
    return items_ == other.items_;
}

bool SameName(TextView left, TextView right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char16_t a, char16_t b) { return Lower(a) == Lower(b); });
}

bool IsPlacementKey(TextView key) {
    static constexpr std::array<TextView, 4> Keys{u"Left", u"Top", u"Width", u"Height"};
    return std::any_of(Keys.begin(), Keys.end(),
                       [&](TextView known) { return SameName(known, key); });
}

FormFile ReadFormFile(const std::filesystem::path& path) {
    RequireFilePath(path);
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) {
        throw FormFileError(0, "the file cannot be read: " + error.message());
    }
    if (size > MaximumFileSize) {
        throw FormFileError(0, "the file is larger than 16 MB");
    }
    std::ifstream stream(path, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(stream), {});
    if (!stream) {
        throw FormFileError(0, "the file cannot be read");
    }
    return ParseFormFile(bytes);
}

void SaveFormFile(const std::filesystem::path& path, const FormFile& form) {
    RequireFilePath(path);
    const std::string bytes = WriteFormFile(form);
    std::filesystem::path temporary = path;
    temporary += ".new";
    std::ofstream stream(temporary, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    std::error_code error;
    if (stream) {
        std::filesystem::rename(temporary, path, error);
    }
    if (!stream || error) {
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
        throw FormFileError(0, "the file cannot be written");
    }
}

} // namespace Quorvane::Host
