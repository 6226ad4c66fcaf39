// SPDX-License-Identifier: MIT
// The display at 192 dots per inch, in a process of its own that lives at that resolution.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

#include "com/Module.h"
#include "com/Scoped.h"
#include "shared/Definition.h"
#include "tests/windows/support/Form.h"
#include "win/Dpi.h"

namespace Quorvane {
namespace {

constexpr wchar_t MarkOfChild[] = L"QUORVANE_AT_192";

/// The system's resolution as the registry has it, put back at the end.
class SystemDpi {
  public:
    explicit SystemDpi(DWORD dpi) {
        ::RegOpenKeyExW(HKEY_CURRENT_USER, L"Control Panel\\Desktop", 0, KEY_READ | KEY_WRITE,
                        &key_);
        DWORD size = sizeof former_;
        hasFormer_ = ::RegQueryValueExW(key_, Name, nullptr, nullptr,
                                        reinterpret_cast<BYTE*>(&former_), &size) == ERROR_SUCCESS;
        Set(dpi);
    }
    ~SystemDpi() {
        if (hasFormer_) {
            Set(former_);
        } else {
            ::RegDeleteValueW(key_, Name);
        }
        ::RegCloseKey(key_);
    }
    SystemDpi(const SystemDpi&) = delete;
    SystemDpi& operator=(const SystemDpi&) = delete;

  private:
    static constexpr wchar_t Name[] = L"LogPixels";

    void Set(DWORD dpi) {
        ::RegSetValueExW(key_, Name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&dpi), sizeof dpi);
    }

    HKEY key_ = nullptr;
    DWORD former_ = 0;
    bool hasFormer_ = false;
};

/// Runs the tests named AtHighResolution in a new process and returns its exit code.
DWORD RunChild() {
    std::wstring command = L"\"";
    command += Com::Wide(Com::ModulePath());
    command += L"\" --gtest_filter=AtHighResolution.*";
    ::SetEnvironmentVariableW(MarkOfChild, L"1");
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    DWORD code = ~0U;
    if (::CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                         &startup, &process)) {
        ::WaitForSingleObject(process.hProcess, 60000);
        ::GetExitCodeProcess(process.hProcess, &code);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
    }
    ::SetEnvironmentVariableW(MarkOfChild, nullptr);
    return code;
}

bool IsChild() {
    return ::GetEnvironmentVariableW(MarkOfChild, nullptr, 0) != 0;
}

TEST(HighResolution, IsTestedInAProcessOfItsOwn) {
    const SystemDpi dpi(192);
    EXPECT_EQ(RunChild(), 0U);
}

/// In the usual process these hold at its own resolution.
class AtHighResolution : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (IsChild()) {
            const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"user32.dll"),
                                                   "SetProcessDpiAwarenessContext");
            using Function = BOOL(WINAPI*)(HANDLE);
            // The context of a process that knows its system's resolution.
            reinterpret_cast<Function>(reinterpret_cast<void*>(found))(HANDLE(-2));
        }
    }

    AtHighResolution() {
        form_.Place();
        form_.Activate();
        dpi_ = Win::DpiOf(form_.Surface());
    }

    int Scaled(int pixels) const { return pixels * dpi_ / 96; }

    Form form_{{0, 0, 800, 400}};
    int dpi_;
};

TEST_F(AtHighResolution, TheProcessHasTheResolution) {
    EXPECT_EQ(dpi_, IsChild() ? 192 : 96);
}

TEST_F(AtHighResolution, StripBarAndOverlapGrow) {
    const RECT strip = PlaceOf(form_.Strip());
    const RECT status = PlaceOf(form_.Status());
    const RECT input = PlaceOf(form_.Input());
    const RECT output = PlaceOf(form_.Output());
    EXPECT_EQ(strip.bottom, Scaled(22));
    EXPECT_EQ(status.bottom - status.top, Scaled(22));
    EXPECT_EQ(input.right - output.left, IsChild() ? 3 : 1);
    EXPECT_EQ(output.right, 800);
}

TEST_F(AtHighResolution, FontsGrow) {
    LOGFONTW font{};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(form_.Input(), WM_GETFONT, 0, 0)),
                 sizeof font, &font);
    EXPECT_EQ(font.lfHeight, -Scaled(11));
}

TEST_F(AtHighResolution, TheErrorPictureHasAsManyPixelsAsItNeeds) {
    Com::ComPtr<IDictionary> inputs;
    ASSERT_EQ(form_.Control()->get_InVals(inputs.Put()), S_OK);
    Com::Variant key(TextView(u"Error"));
    Com::Variant value(TextView(u"hot"));
    inputs->put_Item(&key.Get(), &value.Get());
    form_.Control()->Fire();
    const auto icon = reinterpret_cast<HICON>(::SendMessageW(form_.Status(), SB_GETICON, 0, 0));
    ICONINFO info{};
    ASSERT_TRUE(::GetIconInfo(icon, &info));
    BITMAP bitmap{};
    ::GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, Scaled(16));
    ::DeleteObject(info.hbmColor);
    ::DeleteObject(info.hbmMask);
}

} // namespace
} // namespace Quorvane
