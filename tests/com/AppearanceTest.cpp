// SPDX-License-Identifier: MIT
// The appearance properties of the control, and what it is before any host has set it up.
#include <olectl.h>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/TestFont.h"

namespace Quorvane {
namespace {

constexpr OLE_COLOR WindowBackground = 0x80000005;
constexpr OLE_COLOR WindowText = 0x80000008;

class Appearance : public ControlTest {
  protected:
    static OLE_COLOR BackColor(_FISControl& control) {
        OLE_COLOR color = 0;
        EXPECT_EQ(control.get_BackColor(&color), S_OK);
        return color;
    }
    static OLE_COLOR ForeColor(_FISControl& control) {
        OLE_COLOR color = 0;
        EXPECT_EQ(control.get_ForeColor(&color), S_OK);
        return color;
    }
    static bool Enabled(_FISControl& control) {
        VARIANT_BOOL enabled = 1;
        EXPECT_EQ(control.get_Enabled(&enabled), S_OK);
        EXPECT_TRUE(enabled == VARIANT_TRUE || enabled == VARIANT_FALSE) << enabled;
        return enabled != VARIANT_FALSE;
    }
    static Com::ComPtr<IFontDisp> Font(_FISControl& control) {
        Com::ComPtr<IFontDisp> font;
        EXPECT_EQ(control.get_Font(font.Put()), S_OK);
        return font;
    }
    static void ExpectDefaults(_FISControl& control) {
        EXPECT_EQ(GetText(control, &_FISControl::get_Caption), u"Quorvane Inference System");
        EXPECT_TRUE(Enabled(control));
        EXPECT_TRUE(Font(control));
        EXPECT_EQ(BackColor(control), WindowBackground);
        EXPECT_EQ(ForeColor(control), WindowText);
    }
};

TEST_F(Appearance, IsThatOfAnEmptyBagBeforeAnyHostHasSetTheControlUp) {
    ExpectDefaults(*Create());
}

TEST_F(Appearance, OfANewControlIsThatOfAnEmptyBag) {
    ExpectDefaults(*New(false));
}

TEST_F(Appearance, OfALoadWithoutKeysIsTheDefault) {
    const auto placed = Place(true);
    const auto bag = Com::MakeObject<TestBag>();
    ASSERT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    ExpectDefaults(*placed);
}

TEST_F(Appearance, IsWritableInBothModes) {
    for (const bool runMode : {false, true}) {
        const auto placed = New(runMode);
        _FISControl& control = *placed;
        EXPECT_EQ(SetText(control, &_FISControl::put_Caption, u"Boiler"), S_OK);
        EXPECT_EQ(GetText(control, &_FISControl::get_Caption), u"Boiler");
        EXPECT_EQ(SetText(control, &_FISControl::put_Caption, u""), S_OK);
        EXPECT_EQ(GetText(control, &_FISControl::get_Caption), u"");
        EXPECT_EQ(control.put_Enabled(VARIANT_FALSE), S_OK);
        EXPECT_FALSE(Enabled(control));
        EXPECT_EQ(control.put_Enabled(1), S_OK) << "any value but False is True";
        EXPECT_TRUE(Enabled(control));
        EXPECT_EQ(control.put_BackColor(0x00FF8000), S_OK);
        EXPECT_EQ(BackColor(control), 0x00FF8000u);
        EXPECT_EQ(control.put_ForeColor(0x80000001), S_OK);
        EXPECT_EQ(ForeColor(control), 0x80000001u);
    }
}

TEST_F(Appearance, TakesTheFontByReference) {
    const auto placed = New(true);
    const auto font = NewFont(20);
    EXPECT_EQ(placed->putref_Font(font.Get()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(Font(*placed).Get(), font.Get()));
}

TEST_F(Appearance, RefusesNothingForAFont) {
    const auto placed = New(true);
    const auto before = Font(*placed);
    EXPECT_TRUE(FAILED(placed->putref_Font(nullptr)));
    EXPECT_TRUE(Com::IsSameObject(Font(*placed).Get(), before.Get()));
}

TEST_F(Appearance, IsThatOfTheOneControl) {
    const auto first = New(true);
    const auto second = New(true);
    EXPECT_EQ(SetText(*first, &_FISControl::put_Caption, u"First"), S_OK);
    EXPECT_EQ(first->put_BackColor(1), S_OK);
    ExpectDefaults(*second);
}

TEST_F(Appearance, TellsItsHostOfEachChange) {
    const auto placed = New(false);
    const auto sink = Com::MakeObject<NotifySink>();
    const Connection connection(placed.Control.Get(), __uuidof(IPropertyNotifySink), sink.Get());
    const auto persistence = As<IPersistStreamInit>(placed);
    const auto font = NewFont(12);

    const struct {
        DISPID Property;
        std::function<HRESULT()> Change;
    } cases[] = {
        {DISPID_CAPTION, [&] { return SetText(*placed, &_FISControl::put_Caption, u"A"); }},
        {DISPID_ENABLED, [&] { return placed->put_Enabled(VARIANT_FALSE); }},
        {DISPID_FONT, [&] { return placed->putref_Font(font.Get()); }},
        {DISPID_BACKCOLOR, [&] { return placed->put_BackColor(1); }},
        {DISPID_FORECOLOR, [&] { return placed->put_ForeColor(2); }},
        {0x68030007, [&] { return SetText(*placed, &_FISControl::put_Inputs, u"14"); }},
        {0x68030006, [&] { return SetText(*placed, &_FISControl::put_Outputs, u"14"); }},
        {0x68030005, [&] { return SetText(*placed, &_FISControl::put_Rules, u"14"); }},
    };
    for (const auto& [property, change] : cases) {
        SaveToBag(placed, false);
        EXPECT_EQ(persistence->IsDirty(), S_FALSE);
        sink->Changed.clear();
        EXPECT_EQ(change(), S_OK) << property;
        EXPECT_EQ(sink->Changed, std::vector<DISPID>{property});
        EXPECT_EQ(persistence->IsDirty(), S_OK) << property;
    }
}

TEST_F(Appearance, RefusesANullPlaceForAResult) {
    const auto placed = New(true);
    EXPECT_EQ(placed->get_Caption(nullptr), E_POINTER);
    EXPECT_EQ(placed->get_Enabled(nullptr), E_POINTER);
    EXPECT_EQ(placed->get_Font(nullptr), E_POINTER);
    EXPECT_EQ(placed->get_BackColor(nullptr), E_POINTER);
    EXPECT_EQ(placed->get_ForeColor(nullptr), E_POINTER);
    EXPECT_EQ(placed->get_Inputs(nullptr), E_POINTER);
    EXPECT_EQ(placed->get_InVals(nullptr), E_POINTER);
    EXPECT_EQ(placed->get_OutVals(nullptr), E_POINTER);
    EXPECT_EQ(placed->BatchData(nullptr, nullptr), E_POINTER);
}

class BareControl : public ControlTest {};

TEST_F(BareControl, HasNoTextsAndNoValues) {
    const auto control = Create();
    EXPECT_EQ(GetText(*control, &_FISControl::get_Inputs), u"");
    EXPECT_EQ(GetText(*control, &_FISControl::get_Outputs), u"");
    EXPECT_EQ(GetText(*control, &_FISControl::get_Rules), u"");
    Com::ComPtr<IDictionary> values;
    EXPECT_EQ(control->get_InVals(values.Put()), S_OK);
    EXPECT_FALSE(values);
    EXPECT_EQ(control->get_OutVals(values.Put()), S_OK);
    EXPECT_FALSE(values);
}

TEST_F(BareControl, FiresAndRaisesTheEvent) {
    const auto control = Create();
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(control.Get(), sink.Get());
    EXPECT_EQ(control->put_DataShow(VARIANT_TRUE), S_OK);
    EXPECT_EQ(control->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 1);
}

TEST_F(BareControl, CannotPrepareRulesForNewDefaults) {
    const auto control = Create();
    EXPECT_EQ(control->putref_DefOutVals(NewPlatformDictionary().Get()),
              static_cast<HRESULT>(0x80040052));
}

TEST_F(BareControl, DrawsItselfAnewWithoutAWindow) {
    EXPECT_EQ(Create()->Refresh(), S_OK);
}

} // namespace
} // namespace Quorvane
