// SPDX-License-Identifier: MIT
// Drawing without a window: on a design surface, into metafiles, as a bitmap; like the window.
#include <windows.h>

#include <olectl.h>

#include <gtest/gtest.h>

#include "com/ErrorBoundary.h"
#include "tests/windows/support/Form.h"
#include "tests/windows/support/Picture.h"

namespace Quorvane {
namespace {

constexpr int Width = 320;
constexpr int Height = 200;

/// A size of 320 by 200 pixels at 96 to the inch.
constexpr SIZEL Extent{8467, 5292};

class Drawing : public testing::Test {
  protected:
    Drawing() {
        form_.Place();
        SIZEL extent = Extent;
        form_.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent);
        form_.Control()->put_DataShow(VARIANT_TRUE);
        form_.Control()->Fire();
        form_.Control()->put_BackColor(0x00C0FFFF);
    }

    /// What the control draws of itself into a rectangle of a picture.
    Picture Drawn(const RECTL& bounds, int width = Width, int height = Height) {
        Picture picture(width, height);
        Com::Check(form_.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                                 picture.Context(), &bounds, nullptr, nullptr, 0));
        return picture;
    }

    Form form_{{10, 10, 10 + Width, 10 + Height}};
};

constexpr RECTL Whole{0, 0, Width, Height};

/// The parts of the control in which a picture is compared: strip, row, empty list, status bar.
constexpr RECT CaptionText{4, 2, 200, 20};
constexpr RECT FirstLabel{2, 44, 90, 58};
constexpr RECT FirstValue{84, 44, 150, 58};
constexpr RECT EmptyRows{4, 120, 150, 170};

TEST_F(Drawing, WithoutAWindowLooksLikeTheWindow) {
    const Picture inactive = Drawn(Whole);
    form_.Activate();
    ASSERT_TRUE(form_.WaitUntilSeen());
    form_.Control()->Refresh();
    const Picture window = Picture::OfWindow(form_.Surface());
    EXPECT_EQ(inactive.At(2, 2), window.At(2, 2));
    EXPECT_EQ(inactive.At(100, 150), window.At(100, 150));
    EXPECT_EQ(inactive.At(100, 150), COLORREF{0x00C0FFFF});
    EXPECT_EQ(inactive.At(160, 190), window.At(160, 190));
    for (const RECT& area : {CaptionText, FirstLabel, FirstValue}) {
        const int drawn = inactive.Ink(area);
        const int shown = window.Ink(area);
        EXPECT_GT(shown, 0);
        EXPECT_NEAR(drawn, shown, shown / 4) << area.left << ", " << area.top;
    }
    EXPECT_EQ(inactive.Colours(EmptyRows).count(0x00C0FFFF), 1U);
}

TEST_F(Drawing, IsTheSameInAMetafileAsOnTheScreen) {
    const Picture direct = Drawn(Whole);
    for (const DWORD type : {DWORD{TYMED_MFPICT}, DWORD{TYMED_ENHMF}}) {
        FORMATETC format{
            static_cast<CLIPFORMAT>(type == TYMED_MFPICT ? CF_METAFILEPICT : CF_ENHMETAFILE),
            nullptr, DVASPECT_CONTENT, -1, type};
        STGMEDIUM medium{};
        ASSERT_EQ(form_.As<IDataObject>()->GetData(&format, &medium), S_OK);
        Picture played(Width, Height);
        played.Play(medium);
        ::ReleaseStgMedium(&medium);
        EXPECT_EQ(played.At(2, 2), direct.At(2, 2)) << type;
        EXPECT_EQ(played.At(100, 150), direct.At(100, 150)) << type;
        for (const RECT& area : {CaptionText, FirstLabel, FirstValue}) {
            const int expected = direct.Ink(area);
            EXPECT_GT(played.Ink(area), 0) << type;
            EXPECT_NEAR(played.Ink(area), expected, expected / 3 + 4)
                << type << " at " << area.left << ", " << area.top;
        }
    }
}

TEST_F(Drawing, IsABitmapForHostsThatWantOne) {
    FORMATETC format{CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI};
    STGMEDIUM medium{};
    ASSERT_EQ(form_.As<IDataObject>()->GetData(&format, &medium), S_OK);
    BITMAP bitmap{};
    ASSERT_NE(::GetObjectW(medium.hBitmap, sizeof bitmap, &bitmap), 0);
    EXPECT_EQ(bitmap.bmWidth, Width);
    EXPECT_EQ(bitmap.bmHeight, Height);
    ::ReleaseStgMedium(&medium);
}

TEST_F(Drawing, StaysInItsBoundsAndLeavesTheDeviceContextAsItWas) {
    Picture picture(500, 400);
    HDC const context = picture.Context();
    ::SetViewportOrgEx(context, 30, 20, nullptr);
    const COLORREF text = ::SetTextColor(context, 0x00123456);
    const RECTL bounds{10, 10, 10 + Width, 10 + Height};
    ASSERT_EQ(form_.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                            context, &bounds, nullptr, nullptr, 0),
              S_OK);
    EXPECT_EQ(::GetTextColor(context), COLORREF{0x00123456});
    POINT origin{};
    ::GetViewportOrgEx(context, &origin);
    EXPECT_EQ(origin.x, 30);
    ::SetViewportOrgEx(context, 0, 0, nullptr);
    ::SetTextColor(context, text);
    EXPECT_EQ(picture.At(39, 31), COLORREF{0x00FFFFFF});
    EXPECT_NE(picture.At(41, 31), COLORREF{0x00FFFFFF});
    EXPECT_EQ(picture.At(40 + Width, 60), COLORREF{0x00FFFFFF});
    EXPECT_EQ(picture.At(60, 30 + Height), COLORREF{0x00FFFFFF});
}

TEST_F(Drawing, IgnoresHowTheHostDrawsItself) {
    const Picture plain = Drawn(Whole);
    Picture picture(Width, Height);
    HDC const context = picture.Context();
    ::SetTextAlign(context, TA_CENTER | TA_BASELINE | TA_UPDATECP);
    ::SetROP2(context, R2_XORPEN);
    ASSERT_EQ(form_.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                            context, &Whole, nullptr, nullptr, 0),
              S_OK);
    EXPECT_EQ(::GetTextAlign(context), UINT{TA_CENTER | TA_BASELINE | TA_UPDATECP});
    for (const RECT& area : {CaptionText, FirstLabel, FirstValue, RECT{0, 0, Width, Height}}) {
        EXPECT_EQ(picture.Ink(area), plain.Ink(area)) << area.left << ", " << area.top;
    }
}

TEST_F(Drawing, GrowsWithItsBoundsInTextAsInLines) {
    const Picture small = Drawn(Whole);
    const Picture large = Drawn({0, 0, 3 * Width, 3 * Height}, 3 * Width, 3 * Height);
    const RECT caption{12, 6, 600, 60};
    EXPECT_GT(large.Ink(caption), 5 * small.Ink(CaptionText));
    EXPECT_EQ(large.At(6, 6), small.At(2, 2));
}

TEST_F(Drawing, ScalesWithTheMappingOfTheDeviceContext) {
    Picture picture(Width, Height);
    HDC const context = picture.Context();
    const int state = ::SaveDC(context);
    ::SetMapMode(context, MM_ANISOTROPIC);
    ::SetWindowExtEx(context, Extent.cx, -Extent.cy, nullptr);
    ::SetViewportExtEx(context, Width, Height, nullptr);
    const RECTL bounds{0, 0, Extent.cx, -Extent.cy};
    ASSERT_EQ(form_.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                            context, &bounds, nullptr, nullptr, 0),
              S_OK);
    ::RestoreDC(context, state);
    EXPECT_EQ(picture.At(100, 150), COLORREF{0x00C0FFFF});
    EXPECT_GT(picture.Ink(FirstLabel), 0);
}

TEST_F(Drawing, AnswersWhatItCannotDraw) {
    const auto view = form_.As<IViewObjectEx>();
    Picture picture(10, 10);
    EXPECT_EQ(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, picture.Context(), &Whole,
                         nullptr, nullptr, 0),
              DV_E_DVASPECT);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &Whole, nullptr,
                         nullptr, 0),
              E_INVALIDARG);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, picture.Context(),
                         nullptr, nullptr, nullptr, 0),
              E_POINTER);
    FORMATETC text{CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    EXPECT_EQ(form_.As<IDataObject>()->QueryGetData(&text), DV_E_FORMATETC);
    DWORD hit = 0;
    const RECT bounds{0, 0, 10, 10};
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {5, 5}, 0, &hit), S_OK);
    EXPECT_EQ(hit, DWORD{HITRESULT_HIT});
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {15, 5}, 0, &hit), S_OK);
    EXPECT_EQ(hit, DWORD{HITRESULT_OUTSIDE});
}

TEST(DrawingOfAControlWithoutAHost, IsPossibleAtOnce) {
    const auto control = NewControl();
    Picture picture(Width, Height);
    ASSERT_EQ(control.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                              picture.Context(), &Whole, nullptr, nullptr, 0),
              S_OK);
    EXPECT_GT(picture.Ink({2, 24, 80, 38}), 0) << "the headers";
}

} // namespace
} // namespace Quorvane
