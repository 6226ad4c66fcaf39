// SPDX-License-Identifier: MIT
// The Properties verb in a host without a frame of its own: the platform's frame shows the page.
#include <windows.h>

#include <gtest/gtest.h>

#include "com/ClassFactory.h"
#include "com/ErrorBoundary.h"
#include "com/Module.h"
#include "tests/windows/support/Form.h"
#include "win/WindowText.h"

namespace Quorvane {
namespace {

/// Makes the page of this program's own copy of the class known to the platform.
class KnownPage {
  public:
    KnownPage() {
        Com::ComPtr<IClassFactory> factory;
        Com::Check(Com::GetClassObject(CLSID_FIS_IO, __uuidof(IClassFactory), factory.PutVoid()));
        Com::Check(::CoRegisterClassObject(CLSID_FIS_IO, factory.Get(), CLSCTX_INPROC_SERVER,
                                           REGCLS_MULTIPLEUSE, &cookie_));
    }
    ~KnownPage() { ::CoRevokeClassObject(cookie_); }
    KnownPage(const KnownPage&) = delete;
    KnownPage& operator=(const KnownPage&) = delete;

  private:
    DWORD cookie_ = 0;
};

/// How many Trees a person saw in the frame before closing it.
int Trees = 0;

/// Parts of the page that are cut off at an edge of a window around them.
int PartsCutOff = 0;

/// Whether all of a window is within the client areas of those around it.
bool IsWhole(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    for (HWND around = ::GetParent(window); around; around = ::GetAncestor(around, GA_PARENT)) {
        RECT area{};
        ::GetClientRect(around, &area);
        ::MapWindowPoints(around, nullptr, reinterpret_cast<POINT*>(&area), 2);
        RECT seen{};
        ::IntersectRect(&seen, &area, &place);
        if (!::EqualRect(&seen, &place)) {
            return false;
        }
        if ((::GetWindowLongW(around, GWL_STYLE) & WS_CHILD) == 0) {
            break;
        }
    }
    return true;
}

BOOL CALLBACK CountTree(HWND window, LPARAM) {
    wchar_t name[32] = L"";
    ::GetClassNameW(window, name, 32);
    wchar_t parent[32] = L"";
    ::GetClassNameW(::GetParent(window), parent, 32);
    PartsCutOff += Com::ToText(parent) == u"QuorvaneFisIO" && !IsWhole(window) ? 1 : 0;
    Trees += Com::ToText(name) == u"SysTreeView32" && ::IsWindowVisible(window) ? 1 : 0;
    return TRUE;
}

void CALLBACK LookAndCancel(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND const frame = ::FindWindowW(L"#32770", nullptr);
    if (frame && ::IsWindowVisible(frame)) {
        ::KillTimer(nullptr, timer);
        ::EnumChildWindows(frame, &CountTree, 0);
        ::PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
    }
}

TEST(PropertyFrame, OfThePlatformShowsThePageAndLeavesNothingBehind) {
    const KnownPage page;
    Form form;
    form.Place(Start::New, false);
    form.Activate();
    const LONG before = Com::ModuleLockCount();
    for (const LONG verb : {LONG{OLEIVERB_PROPERTIES}, LONG{1}}) {
        Trees = 0;
        PartsCutOff = 0;
        form.Calls().Clear();
        ::SetTimer(nullptr, 0, 50, &LookAndCancel);
        ASSERT_EQ(form.DoVerb(verb), S_OK);
        EXPECT_EQ(Trees, 2) << "of inputs and of outputs";
        EXPECT_EQ(PartsCutOff, 0);
        EXPECT_EQ(form.Calls().Only({"EnableModeless not", "EnableModeless"}),
                  (std::vector<std::string>{"EnableModeless not", "EnableModeless"}));
        EXPECT_EQ(Com::ModuleLockCount(), before);
    }
}

} // namespace
} // namespace Quorvane
