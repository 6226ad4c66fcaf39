// SPDX-License-Identifier: MIT
// main: the graphical host program, a form to place controls on.
#include <commctrl.h>
#include <ole2.h>

#include <cstdlib>

#include "com/Apartment.h"
#include "com/WindowsTextServices.h"
#include "host/container/Options.h"
#include "host/form/FormWindow.h"

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;

FormWindowSettings SettingsFrom(const Options& options) {
    FormWindowSettings settings;
    settings.Dll = options.Dll;
    settings.Locale = options.Locale;
    settings.BatchFolder = std::filesystem::absolute(options.Output);
    settings.RunMode = !options.Form.empty() && !options.Design;
    return settings;
}

/// A form that cannot be opened is no reason not to go on with another one.
void OpenOrTell(FormWindow& window, const std::filesystem::path& form) {
    try {
        window.OpenForm(form);
    } catch (const std::exception& error) {
        ShowError(window.Get(), error);
    }
}

int RunMessages(FormWindow& window) {
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!window.TranslateKey(message)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

int Run() {
    // Without arguments it begins with an empty form.
    const Options options = __argc > 1 ? ParseOptions(ArgumentTexts(__argc, __wargv)) : Options();
    const Com::Apartment apartment;
    InstallPlatformText(WindowsTextServices());
    // While a control computes a batch, the window answers nothing; the system would put a dead
    // picture in its place after some seconds, and nobody would see the progress.
    ::DisableProcessWindowsGhosting();
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    ::InitCommonControlsEx(&controls);
    FormWindow window(SettingsFrom(options));
    ::ShowWindow(window.Get(), SW_SHOWDEFAULT);
    ::UpdateWindow(window.Get());
    if (!options.Form.empty()) {
        OpenOrTell(window, options.Form);
    }
    return RunMessages(window);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    try {
        return Run();
    } catch (const std::exception& error) {
        ShowError(nullptr, error);
        return 1;
    }
}
