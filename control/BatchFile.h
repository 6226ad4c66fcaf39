// SPDX-License-Identifier: MIT
// A text file of the batch.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "shared/Text.h"
#include "win/Handle.h"

namespace Quorvane {

/// A text file that is written from its beginning to its end through a buffer of constant size.
class BatchFile {
  public:
    /// Makes the file anew; one that exists is deleted first. Throws Com::HresultError, with the
    /// number of a bad file name where the path has a zero character.
    explicit BatchFile(const Text& path);

    /// Closes the file. What could not be written by then is lost without a word: see Flush.
    ~BatchFile();

    BatchFile(const BatchFile&) = delete;
    BatchFile& operator=(const BatchFile&) = delete;

    /// Appends ASCII characters. Throws Com::HresultError when the disk does not take them.
    void Write(std::string_view text);

    /// Appends any text in the ANSI code page, "?" for a character that it lacks.
    void Write(TextView text);

    /// Writes what is still in the buffer. Throws Com::HresultError when the disk does not take it.
    void Flush();

  private:
    struct FileKind {
        using Type = HANDLE;
        static void Close(HANDLE file) noexcept { ::CloseHandle(file); }
    };

    Win::Handle<FileKind> file_;
    std::string buffer_;
};

} // namespace Quorvane
