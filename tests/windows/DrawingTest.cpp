// SPDX-License-Identifier: MIT
// Drawing without a window: on a design surface, into metafiles, as a bitmap; like the window.
#include <windows.h>

#include <olectl.h>

#include <limits>

#include <gtest/gtest.h>

#include "com/ErrorBoundary.h"
#include "tests/windows/support/Form.h"
#include "tests/windows/support/Picture.h"
#include "win/Dpi.h"

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

/// The share of the pixels that are the same in both pictures.
double Likeness(const Picture& one, const Picture& other, int width, int height) {
    int same = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            same += one.At(x, y) == other.At(x, y) ? 1 : 0;
        }
    }
    return static_cast<double>(same) / (width * height);
}

TEST_F(Drawing, LooksLikeTheWindowInAnySize) {
    form_.Control()->put_Caption(Com::Bstr(u"A caption that a narrow control cuts").Get());
    constexpr SIZE Sizes[] = {{Width, 100}, {Width, 60}, {Width, 50}, {Width, 44},
                              {Width, 36},  {Width, 22}, {Width, 10}, {200, 150},
                              {140, 150},   {90, 150},   {60, 36}};
    const auto himetric = [](int pixels) { return Win::HimetricOfPixels(pixels, 96); };
    for (const SIZE& size : Sizes) {
        const RECT place{10, 10, 10 + size.cx, 10 + size.cy};
        const RECTL bounds{0, 0, size.cx, size.cy};
        // Low from the beginning: the lists have a height from before, here as in the window.
        SIZEL whole{himetric(Width), himetric(Height)};
        SIZEL extent{himetric(size.cx), himetric(size.cy)};
        form_.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &whole);
        form_.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent);
        const Picture inactive = Drawn(bounds, size.cx, size.cy);
        form_.TheSite().Position = place;
        form_.Activate();
        ASSERT_TRUE(form_.WaitUntilSeen());
        form_.Control()->Refresh();
        const Picture window = Picture::OfWindow(form_.Surface());
        EXPECT_GT(Likeness(inactive, window, size.cx, size.cy), 0.9)
            << size.cx << " by " << size.cy;
        form_.As<IOleInPlaceObject>()->InPlaceDeactivate();
    }
}

TEST_F(Drawing, LeavesTheSavedStatesOfAPlayingHostAlone) {
    FORMATETC format{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    STGMEDIUM medium{};
    ASSERT_EQ(form_.As<IDataObject>()->GetData(&format, &medium), S_OK);
    Picture played(Width, Height);
    const int first = ::SaveDC(played.Context());
    ::SaveDC(played.Context());
    played.Play(medium);
    EXPECT_EQ(::SaveDC(played.Context()), first + 2);
    ::RestoreDC(played.Context(), first);
    ::ReleaseStgMedium(&medium);
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

/// Whether the control has a window or not: text in a metafile is as large as on the screen, at the
/// extent that was set last.
TEST_F(Drawing, KeepsItsScaleInAMetafileAfterEveryExtent) {
    for (const bool isActive : {false, true}) {
        if (isActive) {
            form_.Activate();
        }
        for (SIZEL extent : {SIZEL{16934, 10583}, SIZEL{8467, 7938}, SIZEL{21167, 5292}, Extent}) {
            const auto object = form_.As<IOleObject>();
            ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
            const int width = ::MulDiv(extent.cx, 96, 2540);
            const int height = ::MulDiv(extent.cy, 96, 2540);
            const Picture direct = Drawn({0, 0, width, height}, width, height);
            for (const DWORD type : {DWORD{TYMED_MFPICT}, DWORD{TYMED_ENHMF}}) {
                FORMATETC format{static_cast<CLIPFORMAT>(type == TYMED_MFPICT ? CF_METAFILEPICT
                                                                              : CF_ENHMETAFILE),
                                 nullptr, DVASPECT_CONTENT, -1, type};
                STGMEDIUM medium{};
                ASSERT_EQ(form_.As<IDataObject>()->GetData(&format, &medium), S_OK);
                Picture played(width, height);
                played.Play(medium);
                ::ReleaseStgMedium(&medium);
                for (const RECT& area : {CaptionText, FirstLabel}) {
                    const int expected = direct.Ink(area);
                    EXPECT_GT(expected, 0) << extent.cx << " x " << extent.cy;
                    EXPECT_NEAR(played.Ink(area), expected, expected / 3 + 4)
                        << type << " at " << extent.cx << " x " << extent.cy << " active "
                        << isActive;
                }
            }
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

/// Rectangles of which hardly anything can be seen, around the point (50, 50) and beside it.
constexpr LONG Far = std::numeric_limits<LONG>::max();
constexpr RECTL Huge[] = {
    {0, 0, Far, Far},         {-Far, -Far, Far, Far},   {-Far - 1, -Far - 1, Far, Far},
    {0, 0, 100, Far},         {0, 0, Far, 100},         {0, Far - 100, 100, Far},
    {0, -Far, 100, 100},      {-Far, 0, 100, 100},      {Far, Far, 0, 0},
    {0, 0, 1 << 27, 1 << 27}, {0, 0, 1000000, 1000000}, {0, -Far, 100, -Far + 100},
};

class BoundedDrawing : public Drawing {
  protected:
    /// An extent, in HIMETRIC, for what is drawn from now on.
    void UseExtent(SIZEL extent) { form_.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent); }

    /// Draws, which must take less time than a person notices.
    void DrawSoon(const RECTL& bounds) {
        const ULONGLONG start = ::GetTickCount64();
        Drawn(bounds, 100, 100);
        EXPECT_LT(::GetTickCount64() - start, Noticed)
            << bounds.left << ", " << bounds.top << ", " << bounds.right << ", " << bounds.bottom;
    }

    static constexpr ULONGLONG Noticed = 1500;
};

TEST_F(BoundedDrawing, EndsForBoundsOfAnySize) {
    for (const SIZEL& extent : {Extent, SIZEL{1, 1}, SIZEL{100, 100000000}, SIZEL{Far, Far}}) {
        UseExtent(extent);
        for (const RECTL& bounds : Huge) {
            DrawSoon(bounds);
        }
    }
}

TEST_F(BoundedDrawing, ShowsTheRowsThatAreSeenOfAHighControl) {
    UseExtent({8467, 100000000});
    // As many pixels as it has at 96 to the inch, and the middle of them in view.
    const LONG height = ::MulDiv(100000000, 96, 2540);
    const Picture middle = Drawn({0, -height / 2, Width, height - height / 2});
    const std::set<COLORREF> colours = middle.Colours({20, 0, 21, Height});
    EXPECT_EQ(colours.count(0x00C0FFFF), 1U) << "the background";
    EXPECT_EQ(colours.count(::GetSysColor(COLOR_BTNFACE)), 1U) << "the lines under the rows";
}

TEST_F(BoundedDrawing, EndsForPicturesOfAnySize) {
    for (const SIZEL& extent :
         {SIZEL{100, 100000000}, SIZEL{100000000, 100}, SIZEL{100, Far}, SIZEL{Far, Far}}) {
        UseExtent(extent);
        for (const FORMATETC& format :
             {FORMATETC{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT},
              FORMATETC{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF}}) {
            FORMATETC wanted = format;
            STGMEDIUM medium{};
            const ULONGLONG start = ::GetTickCount64();
            ASSERT_EQ(form_.As<IDataObject>()->GetData(&wanted, &medium), S_OK);
            EXPECT_LT(::GetTickCount64() - start, Noticed) << extent.cx << " x " << extent.cy;
            Picture(100, 100).Play(medium);
            EXPECT_LT(::GetTickCount64() - start, 2 * Noticed) << extent.cx << " x " << extent.cy;
            ::ReleaseStgMedium(&medium);
        }
    }
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
