// SPDX-License-Identifier: MIT
// The fuzzy system of a control in a form file.
#include "formats/FormSystem.h"

#include <algorithm>

#include "formats/StoredNames.h"
#include "host/formfile/FormFile.h"
#include "host/formfile/Utf8.h"
#include "model/BuiltInDefinition.h"
#include "system/DefinitionTexts.h"

namespace Quorvane::Formats {
namespace {

using Host::FormControl;
using Host::FormFile;

constexpr TextView ControlClass = u"QuorvaneAxEditor.FISControl";
/// The identifier of the same class.
constexpr TextView ControlClassId = u"{3874BE75-C265-46A4-BC3C-28CACF3C7CDC}";

bool IsFuzzyControl(const FormControl& control) {
    return Host::SameName(control.Class, ControlClass) ||
           Host::SameName(control.Class, ControlClassId);
}

FormFile Parse(std::string_view utf8) {
    try {
        return Host::ParseFormFile(utf8);
    } catch (const Host::FormFileError& error) {
        throw FormatError({static_cast<std::size_t>(error.Line), 0}, error.what());
    }
}

FormControl& FindControl(FormFile& form, std::string_view name) {
    const Text wanted = Host::DecodeUtf8(name);
    const auto found = std::ranges::find_if(form.Controls, [&](const FormControl& control) {
        return IsFuzzyControl(control) && (wanted.empty() || Host::SameName(control.Name, wanted));
    });
    if (found == form.Controls.end()) {
        throw FormatError({}, name.empty() ? "the form has no control with a fuzzy system"
                                           : "the form has no control \"" + std::string(name) +
                                                 "\" with a fuzzy system");
    }
    return *found;
}

Text TextOf(const FormControl& control, TextView key, TextView builtIn) {
    const Host::FormProperty* const property = control.Properties.Find(key);
    if (!property) {
        return Text(builtIn);
    }
    const Text* const text = std::get_if<Text>(&property->Value);
    if (!text) {
        throw FormatError({}, "the property " + Host::EncodeUtf8(key) + " of " +
                                  Host::EncodeUtf8(control.Name) + " is no text");
    }
    return *text;
}

const char* NameOf(System::DefinitionPart part) {
    return part == System::DefinitionPart::Inputs    ? "Inputs"
           : part == System::DefinitionPart::Outputs ? "Outputs"
                                                     : "Rules";
}

void SetTexts(FormControl& control, const System::FuzzySystem& system) {
    RequireStorableNames(system);
    const System::DefinitionTexts texts = System::StoredTexts(system);
    control.Properties.Set({u"Inputs", texts.Inputs});
    control.Properties.Set({u"Outputs", texts.Outputs});
    control.Properties.Set({u"Rules", texts.Rules});
}

std::string Write(const FormFile& form) {
    try {
        return Host::WriteFormFile(form);
    } catch (const Host::FormFileError& error) {
        throw FormatError({}, error.what());
    }
}

} // namespace

System::FuzzySystem ReadFormSystem(std::string_view utf8, std::string_view control) {
    FormFile form = Parse(utf8);
    const FormControl& found = FindControl(form, control);
    try {
        return System::FromStoredTexts({TextOf(found, u"Inputs", Main::BuiltInInputs()),
                                        TextOf(found, u"Outputs", Main::BuiltInOutputs()),
                                        TextOf(found, u"Rules", Main::BuiltInRules())});
    } catch (const System::DefinitionError& error) {
        throw FormatError({}, "the text " + std::string(NameOf(error.Part)) + " of " +
                                  Host::EncodeUtf8(found.Name) + ", character " +
                                  std::to_string(error.Column) + ": " +
                                  Host::EncodeUtf8(error.Message));
    }
}

std::vector<std::string> FormControlNames(std::string_view utf8) {
    const FormFile form = Parse(utf8);
    std::vector<std::string> names;
    for (const FormControl& control : form.Controls) {
        if (IsFuzzyControl(control)) {
            names.push_back(Host::EncodeUtf8(control.Name));
        }
    }
    return names;
}

std::string ReplaceFormSystem(std::string_view utf8, const System::FuzzySystem& system,
                              std::string_view control) {
    FormFile form = Parse(utf8);
    SetTexts(FindControl(form, control), system);
    return Write(form);
}

std::string WriteFormSystem(const System::FuzzySystem& system, std::string_view name) {
    FormFile form;
    form.Name = Host::DecodeUtf8(name);
    FormControl control{Text(ControlClass), u"FIS", {}};
    control.Properties.Set({u"Left", std::int32_t{120}});
    control.Properties.Set({u"Top", std::int32_t{120}});
    control.Properties.Set({u"Width", std::int32_t{7500}});
    control.Properties.Set({u"Height", std::int32_t{4500}});
    SetTexts(control, system);
    form.Controls.push_back(std::move(control));
    return Write(form);
}

} // namespace Quorvane::Formats
