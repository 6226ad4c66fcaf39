// SPDX-License-Identifier: MIT
// FormProgram: QuorvaneForm.exe as a process of its own, worked as a person works it.
#include "tests/form/driving/FormProgram.h"

#include "tests/form/driving/Hands.h"
#include "tests/form/driving/Ids.h"
#include "tests/form/driving/Wait.h"

#include <array>

namespace Quorvane::Driving {

namespace {

/// In milliseconds.
constexpr DWORD LongestStart = 20000;

PROCESS_INFORMATION Start(std::wstring commandLine) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        throw DriveError("a program does not start");
    }
    CloseHandle(process.hThread);
    return process;
}

std::wstring Quoted(const std::filesystem::path& path) {
    return L'"' + path.wstring() + L'"';
}

} // namespace

std::filesystem::path OwnFolder() {
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return std::filesystem::path(path.data()).parent_path();
}

std::filesystem::path ProductFolder() {
    return (OwnFolder() / QUORVANE_PRODUCTS).lexically_normal();
}

std::filesystem::path SampleForm() {
    return (OwnFolder() / QUORVANE_SAMPLES / L"RoomHeating.form").lexically_normal();
}

void RegisterControl(bool registered) {
    const PROCESS_INFORMATION process =
        Start(std::wstring(L"regsvr32 /s ") + (registered ? L"" : L"/u ") +
              Quoted(ProductFolder() / L"QuorvaneAxEditor.ocx"));
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 1;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hProcess);
    if (code != 0) {
        throw DriveError("regsvr32 failed");
    }
}

FormProgram::FormProgram(const std::wstring& arguments)
    : process_(Start(Quoted(ProductFolder() / L"QuorvaneForm.exe") + L' ' + arguments)) {
    main_ = Dialog(WindowClass::Form);
    WaitForInputIdle(process_.hProcess, LongestStart);
}

FormProgram::~FormProgram() {
    TerminateProcess(process_.hProcess, 3);
    WaitForSingleObject(process_.hProcess, INFINITE);
    CloseHandle(process_.hProcess);
}

HWND FormProgram::Surface() const {
    return ChildOfClass(main_, WindowClass::Surface);
}

HWND FormProgram::RunPanel() const {
    return ChildOfClass(main_, WindowClass::RunPanel);
}

HWND FormProgram::PropertyGrid() const {
    return ChildOfClass(main_, WindowClass::PropertyGrid);
}

HWND FormProgram::Field(int input) const {
    HWND field = nullptr;
    Expect("there is a field for the input", [&] {
        field = GetDlgItem(ChildOfClass(main_, WindowClass::InputRows), Id::FirstField + input);
        return field != nullptr;
    });
    return field;
}

HWND FormProgram::Slider(int input) const {
    return GetWindow(Field(input), GW_HWNDNEXT);
}

bool FormProgram::IsInRunMode() const {
    return IsWindowVisible(RunPanel()) != FALSE;
}

HWND FormProgram::VisibleDialog(const wchar_t* className, const std::wstring& title) const {
    for (HWND const window : TopWindows(process_.dwProcessId, className)) {
        if (TextOf(window).find(title) != std::wstring::npos) {
            return window;
        }
    }
    return nullptr;
}

HWND FormProgram::Dialog(const wchar_t* className) const {
    HWND found = nullptr;
    Expect("a window opens", [&] { return (found = VisibleDialog(className, {})) != nullptr; });
    Activate(found);
    return found;
}

HWND FormProgram::DialogTitled(const std::wstring& title) const {
    HWND found = nullptr;
    Expect("a dialog opens",
           [&] { return (found = VisibleDialog(WindowClass::Dialog, title)) != nullptr; });
    Activate(found);
    return found;
}

void FormProgram::Answer(HWND dialog, int button) const {
    HWND const pressed = Child(dialog, button);
    // A click that comes while windows still change places can get lost.
    constexpr int Attempts = 5;
    constexpr DWORD TimeForOne = 4000;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        Click(pressed);
        if (WaitFor([dialog] { return !IsWindow(dialog) || !IsWindowVisible(dialog); },
                    TimeForOne)) {
            return;
        }
        Activate(dialog);
    }
    throw DriveError("a dialog does not close");
}

void FormProgram::TypePath(const std::filesystem::path& path) const {
    HWND const dialog = Dialog(WindowClass::Dialog);
    Expect("the file name can be typed", [&] { return ClassOf(FocusOf(dialog)) == L"Edit"; });
    HWND const field = FocusOf(dialog);
    Press('A', {VK_CONTROL});
    Type(path.wstring());
    Expect("the file name is typed", [&] { return TextOf(field) == path.wstring(); });
    Press(VK_RETURN);
    Expect("the file dialog closes", [dialog] { return !IsWindow(dialog); });
}

void FormProgram::New() const {
    Activate(main_);
    Press('N', {VK_CONTROL});
    Expect("an empty form",
           [this] { return TextOf(main_).find(L"(new form)") != std::wstring::npos; });
}

void FormProgram::Open(const std::filesystem::path& path) const {
    Activate(main_);
    Press('O', {VK_CONTROL});
    TypePath(path);
    Expect("the form is open",
           [&] { return TextOf(main_).find(path.filename().wstring()) != std::wstring::npos; });
}

void FormProgram::Save() const {
    Activate(main_);
    Press('S', {VK_CONTROL});
    Expect("the form is saved", [this] { return TextOf(main_).find(L'*') == std::wstring::npos; });
}

void FormProgram::SaveAs(const std::filesystem::path& path) const {
    Activate(main_);
    PostMessageW(main_, WM_COMMAND, Id::SaveAs, 0);
    TypePath(path);
    Expect("the form has its new name",
           [&] { return TextOf(main_).find(path.filename().wstring()) != std::wstring::npos; });
}

void FormProgram::SetRunMode(bool runMode) const {
    Activate(main_);
    runMode ? Press(VK_F5) : Press(VK_F5, {VK_SHIFT});
    Expect("the mode changes", [&] {
        return IsInRunMode() == runMode && (IsWindowVisible(PropertyGrid()) == FALSE) == runMode;
    });
}

void FormProgram::AddControl() const {
    Activate(main_);
    const std::wstring former = TextOf(Child(PropertyGrid(), Id::GridTitle));
    RECT area{};
    GetClientRect(Surface(), &area);
    // The form takes the key while it has the keyboard.
    Click(Surface(), {area.right - 4, area.bottom - 4});
    Expect("nothing is selected",
           [&] { return TextOf(Child(PropertyGrid(), Id::GridTitle)).empty(); });
    Press(VK_INSERT);
    Expect("a control is on the form", [&] {
        const std::wstring title = TextOf(Child(PropertyGrid(), Id::GridTitle));
        return !title.empty() && title != former;
    });
}

void FormProgram::SetProperty(const std::wstring& property, const std::wstring& text) const {
    HWND const list = Child(PropertyGrid(), Id::GridList);
    const int row = RowOf(list, property);
    Click(list, RowPoint(list, row));
    Press(VK_RETURN);
    HWND const field = Child(list, Id::GridField);
    Expect("a property is edited", [&] { return FocusOf(field) == field; });
    Type(text);
    Press(VK_RETURN);
    Expect("a property has its value", [&] { return Cell(list, row, 1) == text; });
}

HWND FormProgram::OpenPropertyFrame() const {
    Activate(main_);
    Press(VK_F4);
    return Dialog(WindowClass::PropertyFrame);
}

void FormProgram::SetField(HWND field, const std::wstring& text) const {
    FocusByClick(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
    Type(text);
    Expect("a field has its text", [&] { return TextOf(field) == text; });
}

void FormProgram::BeginBatch(int divisions, const std::filesystem::path& offered) const {
    SetField(Child(RunPanel(), Id::Divisions), std::to_wstring(divisions));
    Click(Child(RunPanel(), Id::Batch));
    HWND const chooser = Dialog(WindowClass::Dialog);
    Expect("the folder is offered", [&] { return TextOf(FocusOf(chooser)) == offered.wstring(); });
    Press(VK_RETURN);
    Expect("the folder is chosen", [chooser] { return !IsWindow(chooser); });
}

void FormProgram::RunBatch(int divisions, const std::filesystem::path& offered) const {
    BeginBatch(divisions, offered);
    // While the control computes, the program answers no message.
    SendMessageW(RunPanel(), WM_NULL, 0, 0);
    Activate(main_);
}

std::wstring FormProgram::Output(const std::wstring& name) const {
    HWND const list = Child(RunPanel(), Id::OutputList);
    return Cell(list, RowOf(list, name), 1);
}

int FormProgram::EventCount(const std::wstring& event) const {
    HWND const list = Child(RunPanel(), Id::EventLog);
    for (int row = 0; row < RowCount(list); ++row) {
        if (Cell(list, row, 0) == event) {
            return std::stoi(Cell(list, row, 1));
        }
    }
    return 0;
}

DWORD FormProgram::Close() {
    Activate(main_);
    Press(VK_F4, {VK_MENU});
    const bool hasEnded = WaitFor([this] {
        if (HWND const question = VisibleDialog(WindowClass::Dialog, {})) {
            PostMessageW(question, WM_COMMAND, IDNO, 0);
        }
        return WaitForSingleObject(process_.hProcess, 20) == WAIT_OBJECT_0;
    });
    if (!hasEnded) {
        throw DriveError("the program does not end");
    }
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

} // namespace Quorvane::Driving
