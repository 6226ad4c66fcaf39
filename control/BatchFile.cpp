// SPDX-License-Identifier: MIT
// A text file of the batch.
#include "control/BatchFile.h"

#include <olectl.h>

#include "com/ErrorBoundary.h"
#include "win/WideText.h"

namespace Quorvane {
namespace {

constexpr std::size_t BufferSize = std::size_t{64} * 1024;

[[noreturn]] void ThrowLastError() {
    throw Com::HresultError(HRESULT_FROM_WIN32(::GetLastError()));
}

void DeleteExisting(const wchar_t* path) {
    if (!::DeleteFileW(path) && ::GetLastError() != ERROR_FILE_NOT_FOUND) {
        ThrowLastError();
    }
}

HANDLE Replace(const Text& name) {
    if (!Win::IsWholeWide(name)) {
        throw Com::HresultError(CTL_E_BADFILENAMEORNUMBER);
    }
    const wchar_t* const path = Win::Wide(name);
    DeleteExisting(path);
    HANDLE const file = ::CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        ThrowLastError();
    }
    return file;
}

} // namespace

BatchFile::BatchFile(const Text& path) : file_(Replace(path)) {
    buffer_.reserve(BufferSize);
}

BatchFile::~BatchFile() {
    try {
        Flush();
    } catch (...) {
        // Nobody is left to be told; a run that succeeded has called Flush itself.
    }
}

void BatchFile::Write(std::string_view text) {
    if (buffer_.size() + text.size() > BufferSize) {
        Flush();
    }
    buffer_ += text;
}

void BatchFile::Write(TextView text) {
    const auto* const wide = reinterpret_cast<const wchar_t*>(text.data());
    const auto length = static_cast<int>(text.size());
    const auto convert = [&](char* narrow, int size) {
        return ::WideCharToMultiByte(CP_ACP, 0, wide, length, narrow, size, nullptr, nullptr);
    };
    std::string narrow(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    if (convert(narrow.data(), static_cast<int>(narrow.size())) == 0 && !text.empty()) {
        ThrowLastError();
    }
    Write(std::string_view(narrow));
}

void BatchFile::Flush() {
    while (!buffer_.empty()) {
        DWORD written = 0;
        if (!::WriteFile(file_.Get(), buffer_.data(), static_cast<DWORD>(buffer_.size()), &written,
                         nullptr)) {
            ThrowLastError();
        }
        // What is written leaves the buffer at once: a later try must not write it again.
        buffer_.erase(0, written);
    }
}

} // namespace Quorvane
