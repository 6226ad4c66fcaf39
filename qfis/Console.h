// SPDX-License-Identifier: MIT
// What a command reads and writes beside files that it opens itself.
#pragma once

#include <cstddef>
#include <ostream>

namespace Quorvane::Qfis {

/// Bytes that come in time, such as those of a pipe.
class ByteSource {
  public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;

    /// Reads some bytes, at least one as soon as there are any; 0 at the end.
    virtual std::size_t Read(char* bytes, std::size_t count) = 0;
};

struct Console {
    std::ostream& Out;
    std::ostream& Err;
    ByteSource& In;
    /// Whether Err is a terminal, on which the progress of long commands is shown.
    bool ShowsProgress = false;
};

/// The exit codes, for build servers.
enum ExitCode : int {
    Fine = 0,
    Findings = 1,
    BadInput = 2,
};

} // namespace Quorvane::Qfis
