// SPDX-License-Identifier: MIT
// Options: the command line of the host program.
#include "host/container/Options.h"

#include "host/container/Wide.h"
#include "host/formfile/Utf8.h"

#include <cwchar>

namespace Quorvane::Host {

namespace {

[[noreturn]] void Refuse(const std::wstring& message) {
    throw UsageError(EncodeUtf8(FromWide(message)));
}

LCID ParseLocale(const std::wstring& text) {
    wchar_t* end = nullptr;
    const unsigned long number = std::wcstoul(text.c_str(), &end, 0);
    const bool startsWithDigit = !text.empty() && text.front() >= L'0' && text.front() <= L'9';
    if (!startsWithDigit || *end != L'\0') {
        Refuse(L"--locale needs a number such as 1033 or 0x804, not '" + text + L"'");
    }
    return number;
}

class OptionParser {
  public:
    explicit OptionParser(const std::vector<std::wstring>& arguments)
        : next_(arguments.begin()), end_(arguments.end()) {}

    Options Parse() {
        while (next_ != end_) {
            const std::wstring argument = *next_++;
            if (argument.starts_with(L"-")) {
                TakeOption(argument);
            } else if (options_.Form.empty()) {
                options_.Form = argument;
            } else {
                TakeValue(argument);
            }
        }
        if (options_.Form.empty() && !options_.Help) {
            Refuse(L"the form file is missing");
        }
        return std::move(options_);
    }

  private:
    void TakeOption(const std::wstring& name) {
        if (name == L"--design") {
            options_.Design = true;
        } else if (name == L"--new") {
            options_.New = true;
        } else if (name == L"--help") {
            options_.Help = true;
        } else if (name == L"--locale") {
            options_.Locale = ParseLocale(TakeParameter(name));
        } else if (name == L"--output") {
            options_.Output = TakeParameter(name);
        } else if (name == L"--save") {
            options_.Save = TakeParameter(name);
        } else if (name == L"--dll") {
            options_.Dll = TakeParameter(name);
        } else {
            Refuse(L"there is no option '" + name + L"'");
        }
    }

    const std::wstring& TakeParameter(const std::wstring& option) {
        if (next_ == end_ || next_->empty()) {
            Refuse(option + L" needs a value");
        }
        return *next_++;
    }

    void TakeValue(const std::wstring& argument) {
        const std::size_t equals = argument.find(L'=');
        if (equals == std::wstring::npos || equals == 0) {
            Refuse(L"NAME=VALUE is expected behind the form file, not '" + argument + L"'");
        }
        options_.Values[argument.substr(0, equals)] = argument.substr(equals + 1);
    }

    std::vector<std::wstring>::const_iterator next_;
    std::vector<std::wstring>::const_iterator end_;
    Options options_;
};

} // namespace

Options ParseOptions(const std::vector<std::wstring>& arguments) {
    return OptionParser(arguments).Parse();
}

const wchar_t* UsageText() {
    return LR"(Usage: QuorvaneHost [options] FORM [NAME=VALUE ...]

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
