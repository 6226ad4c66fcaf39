// SPDX-License-Identifier: MIT
// The delivered control in a container that is not ours: the platform's own ActiveX window.
#include <windows.h>

#include <olectl.h>

#include <gtest/gtest.h>

#include "com/Module.h"
#include "com/Scoped.h"
#include "control/display/DisplayWindow.h"
#include "idl/QuorvaneAxEditor.h"
#include "tests/com/support/ActivationContext.h"
#include "tests/windows/support/Form.h"

namespace Quorvane {
namespace {

/// The container's library; it stays loaded, with its window class.
class Atl {
  public:
    Atl() : library_(::LoadLibraryW(L"atl100.dll")) {
        if (const auto init = Find<BOOL(WINAPI*)()>("AtlAxWinInit")) {
            ready_ = init() != FALSE;
        }
    }

    bool IsReady() const { return ready_; }

    Com::ComPtr<IUnknown> ControlOf(HWND window) const {
        Com::ComPtr<IUnknown> control;
        Find<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl")(window, control.Put());
        return control;
    }

  private:
    template <class F>
    F Find(const char* name) const {
        return reinterpret_cast<F>(reinterpret_cast<void*>(::GetProcAddress(library_, name)));
    }

    HMODULE library_;
    bool ready_ = false;
};

Text ProgramFolder() {
    const Text program = Com::ModulePath();
    return program.substr(0, program.find_last_of(u'\\'));
}

/// The control of the same build with its manifest, beside a manifest that depends on it.
Text IsolatedFolder() {
    const Text folder = ProgramFolder() + u"\\isolated";
    ::CreateDirectoryW(Com::Wide(folder), nullptr);
    const Text products = ProgramFolder() + u"\\" + Widen(QUORVANE_PRODUCTS);
    for (const Text name : {u"\\QuorvaneAxEditor.ocx", u"\\QuorvaneAxEditor.manifest"}) {
        ::CopyFileW(Com::Wide(products + name), Com::Wide(folder + name), FALSE);
    }
    const Text host = folder + u"\\IsolatedHost.manifest";
    ::CopyFileW(Com::Wide(ProgramFolder() + u"\\IsolatedHost.manifest"), Com::Wide(host), FALSE);
    return host;
}

TEST(AtlContainer, HostsTheDeliveredControlWithoutRegistration) {
    const ActivationContext context(IsolatedFolder());
    ASSERT_TRUE(context.IsActive()) << ::GetLastError();
    static const Atl atl;
    ASSERT_TRUE(atl.IsReady());
    HWND const window =
        ::CreateWindowW(L"AtlAxWin100", L"QuorvaneAxEditor.FISControl", WS_POPUP | WS_VISIBLE, 60,
                        60, 400, 240, nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(window, nullptr);
    HandleMessages();
    {
        const auto control = atl.ControlOf(window).As<_FISControl>();
        ASSERT_TRUE(control);
        HWND surface = nullptr;
        ASSERT_EQ(control.As<IOleInPlaceObject>()->GetWindow(&surface), S_OK);
        EXPECT_TRUE(::IsWindowVisible(surface));
        RECT area{};
        ::GetClientRect(surface, &area);
        EXPECT_EQ(area.right, 400);
        EXPECT_EQ(area.bottom, 240);
        HWND const list = ::GetDlgItem(surface, DisplayWindow::LvwInput);
        EXPECT_EQ(CellText(list, 0, 0), u"Error [-1, 1]");
        // The container is in run mode.
        EXPECT_EQ(control->put_Rules(nullptr), CTL_E_SETNOTSUPPORTEDATRUNTIME);
        EXPECT_EQ(control->put_DataShow(VARIANT_TRUE), S_OK);
        EXPECT_EQ(control->Fire(), S_OK);
        EXPECT_EQ(CellText(list, 0, 1), u"-1");
        ::SetWindowPos(window, nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER);
        HandleMessages();
        ::GetClientRect(surface, &area);
        EXPECT_EQ(area.right, 300);
    }
    ::DestroyWindow(window);
    HandleMessages();
}

} // namespace
} // namespace Quorvane
