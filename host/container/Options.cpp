// SPDX-License-Identifier: MIT
// Options: the command line of the host program.
#include "host/container/Options.h"

#include <cwchar>

#include "host/container/Paths.h"
#include "host/formfile/Utf8.h"

namespace Quorvane::Host {
namespace {

[[noreturn]] void Refuse(const Text& message) {
    throw UsageError(EncodeUtf8(message));
}

LCID ParseLocale(const Text& text) {
    wchar_t* end = nullptr;
    const unsigned long number = std::wcstoul(Com::Wide(text), &end, 0);
    const bool startsWithDigit = !text.empty() && text.front() >= u'0' && text.front() <= u'9';
    if (!startsWithDigit || *end != L'\0') {
        Refuse(u"--locale needs a number such as 1033 or 0x804, not '" + text + u"'");
    }
    return number;
}

class OptionParser {
  public:
    explicit OptionParser(const std::vector<Text>& arguments)
        : next_(arguments.begin()), end_(arguments.end()) {}

    Options Parse() {
        while (next_ != end_) {
            const Text argument = *next_++;
            if (argument.starts_with(u"-")) {
                TakeOption(argument);
            } else if (options_.Form.empty()) {
                options_.Form = ToPath(argument);
            } else {
                TakeValue(argument);
            }
        }
        if (options_.Form.empty() && !options_.Help) {
            Refuse(u"the form file is missing");
        }
        return std::move(options_);
    }

  private:
    void TakeOption(const Text& name) {
        if (name == u"--design") {
            options_.Design = true;
        } else if (name == u"--new") {
            options_.New = true;
        } else if (name == u"--help") {
            options_.Help = true;
        } else if (name == u"--locale") {
            options_.Locale = ParseLocale(TakeParameter(name));
        } else if (name == u"--output") {
            options_.Output = ToPath(TakeParameter(name));
        } else if (name == u"--save") {
            options_.Save = ToPath(TakeParameter(name));
        } else if (name == u"--dll") {
            options_.Dll = ToPath(TakeParameter(name));
        } else {
            Refuse(u"there is no option '" + name + u"'");
        }
    }

    const Text& TakeParameter(const Text& option) {
        if (next_ == end_ || next_->empty()) {
            Refuse(option + u" needs a value");
        }
        return *next_++;
    }

    void TakeValue(const Text& argument) {
        const std::size_t equals = argument.find(u'=');
        if (equals == Text::npos || equals == 0) {
            Refuse(u"NAME=VALUE is expected behind the form file, not '" + argument + u"'");
        }
        options_.Values[argument.substr(0, equals)] = argument.substr(equals + 1);
    }

    std::vector<Text>::const_iterator next_;
    std::vector<Text>::const_iterator end_;
    Options options_;
};

} // namespace

std::vector<Text> ArgumentTexts(int count, wchar_t** arguments) {
    std::vector<Text> texts;
    for (int i = 1; i < count; ++i) {
        texts.push_back(Com::ToText(arguments[i]));
    }
    return texts;
}

Options ParseOptions(const std::vector<Text>& arguments) {
    return OptionParser(arguments).Parse();
}

TextView UsageText() {
    return uR"(Usage: QuorvaneHost [options] FORM [NAME=VALUE ...]

Places the controls of a form file in sites of their own, loads them from the
file, and runs the form's script with the controls and "Host" as its objects.
Events call the procedures named <control>_<event>; Form_Load is called when
the script's main part has run.

  FORM           a text form file; its script is the one it names, or the file
                 of the same name that ends in .vbs or .js
  NAME=VALUE     a value that the script reads with Host.Option("NAME")
  --design       load the controls in design mode; the script does not run
  --new          start the controls as new ones, without their saved properties
  --locale N     the locale the form tells its controls, such as 1033 or 0x804
  --output DIR   the script's folder for files (made if missing; here if not given)
  --save FILE    save the form with the controls' properties afterwards
  --dll PATH     take the controls from this library, registered or not
  --help         show this text

Exit code: 0 success, 1 a control or the script failed, 2 wrong use or a form
file that cannot be read; or what the script gives to Host.Quit.)";
}

} // namespace Quorvane::Host
