// SPDX-License-Identifier: MIT
// What the delivered module carries besides code: version, pictures, manifest.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

#include "com/Module.h"
#include "com/Scoped.h"
#include "control/display/Resource.h"
#include "module/Resource.h"
#include "shared/Text.h"

namespace Quorvane {
namespace {

/// The delivered module, opened for its resources.
class Resources : public testing::Test {
  protected:
    Resources() {
        const Text program = Com::ModulePath();
        path_ = program.substr(0, program.find_last_of(u'\\') + 1) + Widen(QUORVANE_PRODUCTS) +
                u"\\QuorvaneAxEditor.ocx";
        module_ = ::LoadLibraryExW(Com::Wide(path_), nullptr,
                                   LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    }
    ~Resources() override { ::FreeLibrary(module_); }

    void SetUp() override { ASSERT_NE(module_, nullptr); }

    std::string Data(WORD id, LPCWSTR type) const {
        HRSRC const found = ::FindResourceW(module_, MAKEINTRESOURCEW(id), type);
        const auto* const bytes =
            static_cast<const char*>(::LockResource(::LoadResource(module_, found)));
        return {bytes, ::SizeofResource(module_, found)};
    }

    Text path_;
    HMODULE module_;
};

TEST_F(Resources, NameTheVersion) {
    const std::string data = Data(VS_VERSION_INFO, MAKEINTRESOURCEW(16));
    ASSERT_GT(data.size(), 40 + sizeof(VS_FIXEDFILEINFO));
    // The fixed part follows the header and its key, "VS_VERSION_INFO", on a multiple of 4 bytes.
    const auto* const fixed = reinterpret_cast<const VS_FIXEDFILEINFO*>(data.data() + 40);
    EXPECT_EQ(fixed->dwSignature, 0xFEEF04BDU);
    EXPECT_EQ(fixed->dwFileVersionMS, 0x00010000U);
    EXPECT_EQ(fixed->dwFileVersionLS, 0x00050000U);
    EXPECT_EQ(fixed->dwProductVersionMS, 0x00010000U);
    EXPECT_EQ(fixed->dwProductVersionLS, 0x00050000U);
    for (const char* const expected : {"1.0.5", "Fuzzy Logic Inference System Editor",
                                       "OLESelfRegister", "QuorvaneAxEditor.ocx"}) {
        const Text text = Widen(expected);
        const std::string bytes(reinterpret_cast<const char*>(text.data()), 2 * text.size());
        EXPECT_NE(data.find(bytes), std::string::npos) << expected;
    }
}

TEST_F(Resources, HaveAToolboxPictureOfTheCustomarySize) {
    HANDLE const image = ::LoadImageW(module_, MAKEINTRESOURCEW(QUORVANE_TOOLBOX_BITMAP),
                                      IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    ASSERT_NE(image, nullptr);
    BITMAP bitmap{};
    ::GetObjectW(image, sizeof bitmap, &bitmap);
    ::DeleteObject(image);
    EXPECT_EQ(bitmap.bmWidth, 16);
    EXPECT_EQ(bitmap.bmHeight, 16);
}

TEST_F(Resources, HaveTheErrorPictureForEachUsualResolution) {
    // A count of images after two words, then 14 bytes each, the first of which is the width.
    const std::string group = Data(QUORVANE_ERROR_ICON, RT_GROUP_ICON);
    ASSERT_GE(group.size(), 6U);
    std::string widths;
    for (std::size_t at = 6; at + 14 <= group.size(); at += 14) {
        widths.push_back(group[at]);
    }
    EXPECT_EQ(widths, (std::string{16, 20, 24, 32, 48}));
}

TEST_F(Resources, AskForCommonControlsOfVersionSix) {
    const std::string manifest = Data(2, RT_MANIFEST);
    EXPECT_NE(manifest.find("Microsoft.Windows.Common-Controls"), std::string::npos);
    EXPECT_NE(manifest.find("version=\"6.0.0.0\""), std::string::npos);
}

} // namespace
} // namespace Quorvane
