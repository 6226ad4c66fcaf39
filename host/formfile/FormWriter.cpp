// SPDX-License-Identifier: MIT
// FormWriter: the text of a form file.
#include "host/formfile/FormFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "host/formfile/Utf8.h"

namespace Quorvane::Host {
namespace {

// A longer text is cut into lines of this many characters, so that a changed form is readable in a
// comparison of two versions.
constexpr std::size_t PieceLength = 72;

bool IsHighSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

template <class Number>
std::string NumberText(Number number, auto... options) {
    std::array<char, 40> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, options...).ptr;
    return std::string(digits.data(), end);
}

std::string RealText(double number) {
    if (!std::isfinite(number)) {
        throw FormFileError(0, "a form file cannot hold an infinite number");
    }
    std::string text = NumberText(number);
    if (text.find_first_of(".e") == std::string::npos) {
        text += ".0";
    }
    return text;
}

std::string HexText(HexNumber number) {
    std::string digits = NumberText(number.Bits, 16);
    std::transform(digits.begin(), digits.end(), digits.begin(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return "&H" + std::string(8 - digits.size(), '0') + digits + "&";
}

// How many characters from `at` can stand together in one quoted piece; 0 for a character that
// needs ChrW: a control character, or half of a pair, which UTF-8 cannot hold.
std::size_t QuotedLength(TextView text, std::size_t at) {
    std::size_t length = 0;
    while (length < PieceLength && at + length < text.size()) {
        const char16_t c = text[at + length];
        const char16_t next = at + length + 1 < text.size() ? text[at + length + 1] : u'\0';
        const bool isPair = IsHighSurrogate(c) && IsLowSurrogate(next);
        if (c < u' ' || (!isPair && (IsHighSurrogate(c) || IsLowSurrogate(c)))) {
            break;
        }
        length += isPair ? 2 : 1;
    }
    return length;
}

std::string Quoted(TextView text) {
    std::string quoted = "\"";
    for (const char c : EncodeUtf8(text)) {
        if (c == '"') {
            quoted += '"';
        }
        quoted += c;
    }
    return quoted + '"';
}

class FormWriter {
  public:
    std::string Write(const FormFile& form) {
        for (const Text& comment : form.Comments) {
            Line("'" + EncodeUtf8(comment));
        }
        Line("Version 1");
        Line("Begin Form " + EncodeUtf8(form.Name));
        ++depth_;
        Properties(form.Properties);
        for (const FormControl& control : form.Controls) {
            Line("Begin " + EncodeUtf8(control.Class) + " " + EncodeUtf8(control.Name));
            ++depth_;
            Properties(control.Properties);
            --depth_;
            Line("End");
        }
        --depth_;
        Line("End");
        return std::move(text_);
    }

    // How std::visit writes one property, by the kind of its value.
    void operator()(bool value) { Line(key_ + (value ? " = True" : " = False")); }
    void operator()(std::int32_t value) { Line(key_ + " = " + NumberText(value)); }
    void operator()(HexNumber value) { Line(key_ + " = " + HexText(value)); }
    void operator()(double value) { Line(key_ + " = " + RealText(value)); }
    void operator()(const Text& value) { QuotedText(value); }
    void operator()(const FormProperties& value) {
        Line("BeginProperty " + key_);
        ++depth_;
        Properties(value);
        --depth_;
        Line("EndProperty");
    }

  private:
    void Line(const std::string& content) { text_ += Indent() + content + "\n"; }

    std::string Indent() const { return std::string(4 * depth_, ' '); }

    void Properties(const FormProperties& properties) {
        for (const FormProperty& property : properties) {
            key_ = EncodeUtf8(property.Key);
            std::visit(*this, property.Value);
        }
    }

    void QuotedText(TextView text) {
        std::string pieces;
        std::string separator;
        std::size_t lineLength = 0;
        for (std::size_t at = 0; at < text.size() || pieces.empty();) {
            const std::size_t length = QuotedLength(text, at);
            if (lineLength != 0) {
                separator =
                    lineLength + length > PieceLength ? " & _\n" + Indent() + "    " : " & ";
            }
            if (separator.size() > 3) {
                lineLength = 0;
            }
            const bool needsCode = length == 0 && !text.empty();
            pieces += separator;
            pieces += needsCode ? "ChrW(" + NumberText(static_cast<unsigned>(text[at])) + ")"
                                : Quoted(text.substr(at, length));
            const std::size_t taken = needsCode ? 1 : length;
            lineLength += std::max<std::size_t>(taken, 8);
            at += taken;
        }
        Line(key_ + " = " + pieces);
    }

    std::string text_;
    std::string key_;
    std::size_t depth_ = 0;
};

} // namespace

std::string WriteFormFile(const FormFile& form) {
    std::string text = FormWriter().Write(form);
    // A name with blanks or a comment with a line break would be read back as something else.
    if (ParseFormFile(text) != form) {
        throw FormFileError(0, "the form holds a name or a value that its file cannot keep");
    }
    return text;
}

} // namespace Quorvane::Host
