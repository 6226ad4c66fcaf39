// SPDX-License-Identifier: MIT
// FormFile: a form with its controls as kept in a readable text file.
//
//     ' Comments at the top are kept.
//     Version 1
//     Begin Form Room
//         Caption = "Room heating"
//         Script = "Room.vbs"
//         Begin Vendor.Control.1 Heater
//             Caption = "He said ""on""" & ChrW(13) & ChrW(10) & _
//                       "second line"
//             BackColor = &H80000005&
//             Enabled = True
//             Gain = 0.25
//             BeginProperty Font
//                 Name = "Tahoma"
//                 Size = 8.25
//             EndProperty
//         End
//     End
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "shared/Text.h"

namespace Quorvane::Host {

struct FormProperty;

/// A 32-bit number that a person reads in hexadecimal, such as a colour.
struct HexNumber {
    std::uint32_t Bits = 0;
    bool operator==(const HexNumber&) const = default;
};

/// Named values in file order. Keys match without regard to the case of ASCII letters.
class FormProperties {
  public:
    FormProperties();
    FormProperties(const FormProperties&);
    FormProperties(FormProperties&&) noexcept;
    FormProperties& operator=(const FormProperties&);
    FormProperties& operator=(FormProperties&&) noexcept;
    ~FormProperties();

    /// The property named `key`, or nullptr. Valid until the next change.
    const FormProperty* Find(TextView key) const;

    /// Replaces the property of that key where it stands, or appends it.
    void Set(FormProperty property);

    /// Whether there was such a property.
    bool Remove(TextView key);

    void Clear();
    std::size_t Count() const;
    bool IsEmpty() const { return Count() == 0; }
    std::vector<FormProperty>::const_iterator begin() const;
    std::vector<FormProperty>::const_iterator end() const;
    bool operator==(const FormProperties& other) const;

  private:
    std::vector<FormProperty> items_;
};

/// A property's value; a nested list of properties stands for an object such as a font.
using FormValue = std::variant<bool, std::int32_t, HexNumber, double, Text, FormProperties>;

struct FormProperty {
    Text Key;
    FormValue Value;
    bool operator==(const FormProperty&) const = default;
};

/// One control: `Class` is a ProgID or a "{class identifier}", `Name` is unique on the form.
struct FormControl {
    Text Class;
    Text Name;
    FormProperties Properties;
    bool operator==(const FormControl&) const = default;
};

/// A form file's content. `Comments` are the lines above "Version", without the apostrophe.
struct FormFile {
    std::vector<Text> Comments;
    Text Name;
    FormProperties Properties;
    std::vector<FormControl> Controls;
    bool operator==(const FormFile&) const = default;
};

/// What is wrong with a form file, and in which line (counted from 1; 0 for the file as a whole).
struct FormFileError : std::runtime_error {
    FormFileError(int line, const std::string& message) : std::runtime_error(message), Line(line) {}
    int Line;
};

/// The text form of a name or key compared as the file does: ASCII letters without case.
bool SameName(TextView left, TextView right);

/// True for the keys of a control's block that place it on the form (Left, Top, Width, Height);
/// they belong to the form and are never shown to the control.
bool IsPlacementKey(TextView key);

/// Reads a form from UTF-8 text. Throws FormFileError.
FormFile ParseFormFile(std::string_view utf8);

/// The UTF-8 text of a form; parsing it gives an equal form.
/// Throws FormFileError for what a form file cannot hold: an infinite number, a malformed name.
std::string WriteFormFile(const FormFile& form);

/// Reads the form file at `path`, at most 16 MB. Throws FormFileError.
FormFile ReadFormFile(const std::filesystem::path& path);

/// Writes the form to `path` by way of a temporary file beside it, so that a failure leaves the old
/// file whole. Throws FormFileError.
void SaveFormFile(const std::filesystem::path& path, const FormFile& form);

} // namespace Quorvane::Host
