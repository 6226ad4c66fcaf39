// SPDX-License-Identifier: MIT
// FormParser: reads the text of a form file, line by line.
#include "host/formfile/FormFile.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/formfile/FormLine.h"
#include "host/formfile/Utf8.h"

namespace Quorvane::Host {
namespace {

// A file nested deeper than this is damaged or hostile; objects in real forms nest once.
constexpr int MaximumNesting = 8;

// The same goes for a form with more controls, or a block with more properties, than this. Without
// a limit, looking for duplicates in a large file could take hours.
constexpr std::size_t MaximumCount = 1000;

/// Counts lines as FormLine does: one ends in either character, or in both.
int LineOfOffset(std::string_view bytes, std::size_t offset) {
    const std::string_view before = bytes.substr(0, offset);
    int line = 1;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const bool isPair = bytes.substr(i).starts_with("\r\n");
        line += before[i] == '\n' || (before[i] == '\r' && !isPair) ? 1 : 0;
    }
    return line;
}

Text Decode(std::string_view utf8) {
    try {
        return DecodeUtf8(utf8);
    } catch (const Utf8Error& error) {
        throw FormFileError(LineOfOffset(utf8, error.Offset), error.what());
    }
}

class FormParser {
  public:
    explicit FormParser(TextView text) : line_(text) {}

    FormFile Parse() {
        ReadVersion();
        NextStatement("'Begin Form'");
        if (!line_.TakeWord(u"Begin") || !line_.TakeWord(u"Form")) {
            line_.Fail("'Begin Form' and the form's name are expected here");
        }
        form_.Name = line_.TakeIdentifier("the form's name");
        line_.ExpectEnd();
        ReadForm();
        if (line_.NextStatement()) {
            line_.Fail("nothing may follow the form's 'End'");
        }
        return std::move(form_);
    }

  private:
    void ReadVersion() {
        while (line_.Next() && line_.IsBlankOrComment()) {
            if (const auto comment = line_.Comment()) {
                form_.Comments.emplace_back(*comment);
            }
        }
        if (!line_.TakeWord(u"Version")) {
            line_.Fail("a form file starts with 'Version 1'");
        }
        if (line_.TakeValue() != FormValue(std::int32_t{1})) {
            line_.Fail("this version of the form file is not known; 1 is");
        }
        line_.ExpectEnd();
    }

    void NextStatement(const std::string& missing) {
        if (!line_.NextStatement()) {
            line_.Fail("the file ends where " + missing + " is expected");
        }
    }

    void ReadForm() {
        for (;;) {
            NextStatement("the form's 'End'");
            if (line_.TakeStatementWord(u"End")) {
                return line_.ExpectEnd();
            }
            if (line_.TakeStatementWord(u"Begin")) {
                form_.Controls.push_back(ReadControl());
            } else {
                ReadProperty(form_.Properties, 0);
            }
        }
    }

    FormControl ReadControl() {
        if (form_.Controls.size() == MaximumCount) {
            line_.Fail("the form has too many controls");
        }
        FormControl control;
        control.Class = line_.TakeClass();
        control.Name = line_.TakeIdentifier("the control's name");
        line_.ExpectEnd();
        for (const FormControl& other : form_.Controls) {
            if (SameName(other.Name, control.Name)) {
                line_.Fail("the form already has a control named", control.Name);
            }
        }
        ReadProperties(control.Properties, u"End", 0);
        return control;
    }

    void ReadProperties(FormProperties& properties, TextView terminator, int depth) {
        const int firstLine = line_.Number();
        for (;;) {
            NextStatement("the end of the block begun in line " + std::to_string(firstLine));
            if (line_.TakeStatementWord(terminator)) {
                return line_.ExpectEnd();
            }
            if (line_.TakeStatementWord(u"Begin")) {
                line_.Fail("a control cannot hold another one");
            }
            ReadProperty(properties, depth);
        }
    }

    void ReadProperty(FormProperties& properties, int depth) {
        FormProperty property;
        if (line_.TakeStatementWord(u"BeginProperty")) {
            if (depth == MaximumNesting) {
                line_.Fail("the blocks are nested too deeply");
            }
            property.Key = TakeNewKey(properties);
            line_.ExpectEnd();
            FormProperties nested;
            ReadProperties(nested, u"EndProperty", depth + 1);
            property.Value = std::move(nested);
        } else {
            property.Key = TakeNewKey(properties);
            if (!line_.TakeSymbol(u'=')) {
                line_.Fail("'=' is expected after", property.Key);
            }
            property.Value = line_.TakeValue();
            line_.ExpectEnd();
        }
        properties.Set(std::move(property));
    }

    Text TakeNewKey(const FormProperties& properties) {
        Text key = line_.TakeIdentifier("a property's name");
        if (properties.Count() == MaximumCount) {
            line_.Fail("the block has too many properties");
        }
        if (properties.Find(key)) {
            line_.Fail("the block already has a property named", key);
        }
        return key;
    }

    FormLine line_;
    FormFile form_;
};

} // namespace

FormFile ParseFormFile(std::string_view utf8) {
    const Text text = Decode(utf8);
    return FormParser(text).Parse();
}

} // namespace Quorvane::Host
