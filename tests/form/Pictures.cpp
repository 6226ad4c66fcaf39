// SPDX-License-Identifier: MIT
// main: takes the pictures of the guide, working the form program as a person does.
#include "tests/form/driving/Hands.h"
#include "tests/form/driving/Picture.h"
#include "tests/form/driving/TankDesign.h"
#include "tests/form/driving/Wait.h"

#include <cstdio>
#include <objbase.h>

namespace {

using namespace Quorvane::Driving;

/// Time for what was drawn to reach the screen.
constexpr DWORD DrawingTime = 400;

class Photographer {
  public:
    explicit Photographer(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void Take(const std::string& name, HWND window) const {
        UpdateWindow(window);
        Sleep(DrawingTime);
        SavePng(PictureOf(window), folder_ / (name + ".png"));
        std::printf("    %s.png\n", name.c_str());
        std::fflush(stdout);
    }

  private:
    std::filesystem::path folder_;
};

/// Starts on a form; batch files are offered the folder.
std::wstring Arguments(const std::filesystem::path& folder, const std::filesystem::path& form) {
    return L"--output \"" + folder.wstring() + L"\" \"" + form.wstring() + L"\"";
}

/// Sets both inputs, shows the values in the control, fires, and draws the response.
void RunOnce(const FormProgram& program, const std::filesystem::path& files, const wchar_t* first,
             const wchar_t* second) {
    Click(Child(program.RunPanel(), Id::DataShow));
    program.RunBatch(20, files);
    program.SetField(program.Field(0), first);
    program.SetField(program.Field(1), second);
    Click(Child(program.RunPanel(), Id::Fire));
}

void ShowRefusal(const FormProgram& program, const PageHands& page, const Photographer& camera) {
    HWND const tree = page.Tree(Id::TreInput);
    page.BeginEdit(Id::TreInput, TreeItem(tree, {L"TempDiff", L"Warm", L"0"}), L"9");
    Press(VK_RETURN);
    HWND const message = program.Dialog(WindowClass::Dialog);
    camera.Take("message", message);
    program.Answer(message, Id::Ok);
}

void ShowSample(FormProgram& program, const std::filesystem::path& files,
                const Photographer& camera) {
    RunOnce(program, files, L"1.5", L"0.25");
    camera.Take("form-run", program.Main());
    program.SetRunMode(false);
    Click(program.Surface(), {200, 200});
    camera.Take("form-design", program.Main());
    HWND const frame = program.OpenPropertyFrame();
    const PageHands page(program, frame);
    page.Select(Id::TreOutput, {L"Valve"});
    camera.Take("page-output", frame);
    page.Select(Id::TreInput, {L"TempDiff"});
    camera.Take("page-input", frame);
    const RuleEditorHands editor(program, page.OpenRuleEditor());
    camera.Take("rules", editor.Window());
    editor.Close();
    ShowRefusal(program, page, camera);
    program.Answer(frame, Id::Cancel);
}

/// Leaves the form and the batch files in the folder.
void DesignAndRunTank(FormProgram& program, const std::filesystem::path& files,
                      const Photographer& camera) {
    const auto form = files / L"Tank.form";
    HWND const frame = program.OpenPropertyFrame();
    const PageHands page(program, frame);
    DesignTank(program, page,
               [&](const std::string& name, HWND window) { camera.Take(name, window); });
    program.Answer(frame, Id::Ok);
    program.SetProperty(L"Caption", L"Tank");
    std::error_code ignored;
    std::filesystem::remove(form, ignored);
    program.SaveAs(form);
    program.Close();
    FormProgram again(Arguments(files, form));
    const TankCycle& cycle = TankCycles[0];
    RunOnce(again, files, cycle.Level, cycle.Inflow);
    Expect("the output that was worked out by hand",
           [&] { return again.Output(L"Pump") == cycle.Pump; });
    camera.Take("tank-run", again.Main());
    again.Close();
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3) {
        std::fputs("Usage: form_pictures PICTURES FILES (two folders)\n", stderr);
        return 2;
    }
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    try {
        const Photographer camera(std::filesystem::absolute(arguments[1]));
        const auto files = std::filesystem::absolute(arguments[2]);
        std::filesystem::create_directories(files);
        FormProgram program(Arguments(files, SampleForm()));
        ShowSample(program, files, camera);
        DesignAndRunTank(program, files, camera);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    CoUninitialize();
    return 0;
}
