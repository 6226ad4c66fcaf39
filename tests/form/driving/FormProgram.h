// SPDX-License-Identifier: MIT
// FormProgram: QuorvaneForm.exe as a process of its own, worked as a person works it.
#pragma once

#include "tests/form/driving/Windows.h"

#include <filesystem>
#include <string>

namespace Quorvane::Driving {

/// The folder of the running program.
std::filesystem::path OwnFolder();

/// The products of this build, and the sample form. Paths as a program started here understands
/// them.
std::filesystem::path ProductFolder();
std::filesystem::path SampleForm();

/// Registers the control of this build, or takes it out of the registry. Throws DriveError.
void RegisterControl(bool registered);

/// One run of the form program. Every member throws DriveError where the program does not follow.
class FormProgram {
  public:
    /// Starts it and waits for its window.
    explicit FormProgram(const std::wstring& arguments);

    /// Ends it, whatever it is doing.
    ~FormProgram();
    FormProgram(const FormProgram&) = delete;
    FormProgram& operator=(const FormProgram&) = delete;

    HWND Main() const { return main_; }
    DWORD ProcessId() const { return process_.dwProcessId; }
    HWND Surface() const;
    HWND RunPanel() const;
    HWND PropertyGrid() const;

    /// The input rows' field and slider, by the order of the inputs.
    HWND Field(int input) const;
    HWND Slider(int input) const;

    bool IsInRunMode() const;

    /// Waits for a visible window of the program of this class, and until the keyboard is its own.
    HWND Dialog(const wchar_t* className) const;

    /// The same for a message box, or one of the system's dialogs, with this text in its title.
    HWND DialogTitled(const std::wstring& title) const;

    /// Answers the open dialog with a key or a button's id, and waits until it is closed.
    void Answer(HWND dialog, int button) const;

    void New() const;
    void Open(const std::filesystem::path& path) const;
    void Save() const;
    void SaveAs(const std::filesystem::path& path) const;
    void SetRunMode(bool runMode) const;

    /// Adds a control by the Insert key.
    void AddControl() const;

    /// Changes a text in the property grid by Enter, typing and Enter.
    void SetProperty(const std::wstring& property, const std::wstring& text) const;

    /// Opens the property frame of the selected control by F4.
    HWND OpenPropertyFrame() const;

    /// Replaces the text of a field by typing.
    void SetField(HWND field, const std::wstring& text) const;

    /// Begins to tabulate the response in so many divisions, in the folder that the program offers.
    void BeginBatch(int divisions, const std::filesystem::path& offered) const;

    /// The same, and waits for the end.
    void RunBatch(int divisions, const std::filesystem::path& offered) const;

    /// The value of an output in the program's list.
    std::wstring Output(const std::wstring& name) const;

    /// How often an event came, as the log shows it.
    int EventCount(const std::wstring& event) const;

    /// Closes the program by Alt+F4, answers a question about changes with No, and waits for its
    /// end; its exit code.
    DWORD Close();

  private:
    HWND VisibleDialog(const wchar_t* className, const std::wstring& title) const;
    void TypePath(const std::filesystem::path& path) const;

    PROCESS_INFORMATION process_{};
    HWND main_ = nullptr;
};

} // namespace Quorvane::Driving
