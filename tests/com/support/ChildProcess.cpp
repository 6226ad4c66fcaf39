// SPDX-License-Identifier: MIT
// Programs that a test starts.
#include "tests/com/support/ChildProcess.h"

#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "tests/com/support/TestFolder.h"

namespace Quorvane {
namespace {

constexpr const char* OutputFile = "output.txt";

/// A handle that is closed.
class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { ::CloseHandle(handle_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_;
};

/// A file that a child can write to.
HANDLE NewInheritedFile(const std::filesystem::path& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return ::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Gives the exit code.
DWORD RunInto(const Text& commandLine, HANDLE output, DWORD longest) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = output;
    start.hStdError = output;
    PROCESS_INFORMATION child{};
    Text writable(commandLine);
    if (!::CreateProcessW(nullptr, reinterpret_cast<wchar_t*>(writable.data()), nullptr, nullptr,
                          TRUE, 0, nullptr, nullptr, &start, &child)) {
        ADD_FAILURE() << "the program did not start: error " << ::GetLastError();
        return static_cast<DWORD>(-1);
    }
    const Handle process(child.hProcess);
    const Handle thread(child.hThread);
    if (::WaitForSingleObject(process.Get(), longest) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "the program did not end";
        ::TerminateProcess(process.Get(), 1);
        ::WaitForSingleObject(process.Get(), longest);
    }
    DWORD code = 0;
    ::GetExitCodeProcess(process.Get(), &code);
    return code;
}

} // namespace

ChildResult RunChild(const Text& commandLine, DWORD longest) {
    const TestFolder folder;
    ChildResult result;
    {
        const Handle output(NewInheritedFile(folder.File(OutputFile)));
        result.ExitCode = RunInto(commandLine, output.Get(), longest);
    }
    result.Output = folder.Read(OutputFile);
    std::erase(result.Output, '\r');
    return result;
}

} // namespace Quorvane
