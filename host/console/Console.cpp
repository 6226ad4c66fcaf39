// SPDX-License-Identifier: MIT
// Console: lines of text to the console, or as UTF-8 to a file or pipe.
#include "host/console/Console.h"

#include "com/Scoped.h"
#include "host/formfile/Utf8.h"

namespace Quorvane::Host {

void WriteConsoleLine(DWORD stream, TextView line) {
    const HANDLE handle = ::GetStdHandle(stream);
    const Text text = Text(line) + u"\n";
    DWORD mode = 0;
    DWORD written = 0;
    if (::GetConsoleMode(handle, &mode)) {
        ::WriteConsoleW(handle, Com::Wide(text), static_cast<DWORD>(text.size()), &written,
                        nullptr);
        return;
    }
    const std::string bytes = EncodeUtf8(text);
    ::WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

} // namespace Quorvane::Host
