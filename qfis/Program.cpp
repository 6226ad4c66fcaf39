// SPDX-License-Identifier: MIT
// qfis: the program.
#include <cstdio>
#include <iostream>

#include "host/formfile/Utf8.h"
#include "qfis/Main.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

using namespace Quorvane;

constexpr int StandardInput = 0;
constexpr int StandardError = 2;

/// Gives what has come without waiting for more, which the streams of the library do.
class Input final : public Qfis::ByteSource {
  public:
    std::size_t Read(char* bytes, std::size_t count) override {
#ifdef _WIN32
        const auto read = ::_read(StandardInput, bytes, static_cast<unsigned>(count));
#else
        const auto read = ::read(StandardInput, bytes, count);
#endif
        return read < 0 ? 0 : static_cast<std::size_t>(read);
    }
};

int Run(std::vector<std::string> arguments) {
    std::ios::sync_with_stdio(false);
    Input input;
#ifdef _WIN32
    // Bytes stay as they are: line ends belong to the data.
    for (FILE* const stream : {stdin, stdout}) {
        ::_setmode(::_fileno(stream), _O_BINARY);
    }
    const bool isTerminal = ::_isatty(StandardError) != 0;
#else
    const bool isTerminal = ::isatty(StandardError) != 0;
#endif
    return Qfis::Main(std::move(arguments), {std::cout, std::cerr, input, isTerminal});
}

} // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** arguments) {
    std::vector<std::string> utf8;
    for (int i = 1; i < count; ++i) {
        const std::wstring wide(arguments[i]);
        utf8.push_back(Host::EncodeUtf8(std::u16string(wide.begin(), wide.end())));
    }
    return Run(std::move(utf8));
}
#else
int main(int count, char** arguments) {
    return Run({arguments + 1, arguments + count});
}
#endif
