// SPDX-License-Identifier: MIT
// Where the help file of the current language is.
#include "control/HelpFile.h"

#include <windows.h>

#include <algorithm>
#include <string>

#include "com/RegistryJournal.h"
#include "com/Scoped.h"
#include "idl/QuorvaneAxEditor.h"
#include "shared/Definition.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane {
namespace {

/// The most characters that a help directory can have, its terminating zero included.
constexpr DWORD LongestDirectory = 32768;

Text HelpDirectoryKey() {
    wchar_t braced[39];
    ::StringFromGUID2(LIBID_QuorvaneAxEditor, braced, static_cast<int>(std::size(braced)));
    return u"TypeLib\\" + Com::ToText(braced) + u"\\1.0\\HELPDIR";
}

Text FromAnsi(const std::string& ansi) {
    Text wide(ansi.size(), u'\0');
    const int size = ::MultiByteToWideChar(CP_ACP, 0, ansi.data(), static_cast<int>(ansi.size()),
                                           reinterpret_cast<wchar_t*>(wide.data()),
                                           static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(size));
    return wide;
}

} // namespace

void SetHelpFile() {
    const auto key = Com::RegistryKey::Open(HKEY_CLASSES_ROOT, HelpDirectoryKey(), KEY_READ);
    if (!key) {
        return;
    }
    // A value that cannot be read leaves the buffer as it is: blanks, taken at their full length.
    std::string directory(LongestDirectory, ' ');
    DWORD size = LongestDirectory;
    ::RegQueryValueExA(key.Get(), "", nullptr, nullptr, reinterpret_cast<BYTE*>(directory.data()),
                       &size);
    directory.resize(std::min(std::max<DWORD>(size, 1) - 1, LongestDirectory));
    Definition::State().HelpFile = FromAnsi(directory) + Main::GetText(TextIds::HelpFile);
}

} // namespace Quorvane
