// SPDX-License-Identifier: MIT
// Console: lines of text to the console, or as UTF-8 to a file or pipe.
#include "host/console/Console.h"

#include "host/container/Wide.h"
#include "host/formfile/Utf8.h"

namespace Quorvane::Host {

void WriteConsoleLine(DWORD stream, std::wstring_view line) {
    const HANDLE handle = GetStdHandle(stream);
    const std::wstring text = std::wstring(line) + L"\n";
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(handle, &mode)) {
        WriteConsoleW(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    const std::string bytes = EncodeUtf8(FromWide(text));
    WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

} // namespace Quorvane::Host
