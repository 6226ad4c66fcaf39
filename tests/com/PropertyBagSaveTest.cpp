// SPDX-License-Identifier: MIT
// Saving the control to a property bag.
#include <olectl.h>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/TestFont.h"

namespace Quorvane {
namespace {

class PropertyBagSave : public ControlTest {};

/// What the bag has been given, each value as Describe words it.
std::map<Text, std::string> Contents(const TestBag& bag) {
    std::map<Text, std::string> contents;
    for (const auto& [name, value] : bag.Values) {
        contents[name] = Describe(value);
    }
    return contents;
}

TEST_F(PropertyBagSave, WritesNothingOfANewControl) {
    const auto placed = New(false);
    EXPECT_TRUE(SaveToBag(placed, false)->Writes.empty());
}

TEST_F(PropertyBagSave, WritesAllOfANewControlWhenAskedForAll) {
    const auto placed = New(false);
    const auto bag = SaveToBag(placed, true);
    const std::vector<Text> expected = {u"Caption", u"Font",   u"BackColor", u"ForeColor",
                                        u"Enabled", u"Inputs", u"Outputs",   u"Rules"};
    EXPECT_EQ(bag->Writes, expected);
    auto contents = Contents(*bag);
    EXPECT_EQ(contents[u"Caption"], "String Quorvane Inference System");
    EXPECT_EQ(contents[u"Font"], "Object");
    EXPECT_EQ(contents[u"BackColor"], "Long -2147483643");
    EXPECT_EQ(contents[u"ForeColor"], "Long -2147483640");
    EXPECT_EQ(contents[u"Enabled"], "Boolean True");
    EXPECT_EQ(contents[u"Inputs"], "String " + Narrow(GetText(*placed, &_FISControl::get_Inputs)));
}

TEST_F(PropertyBagSave, WritesWhatDiffersFromItsDefault) {
    const auto placed = New(false);
    const struct {
        TextView Name;
        std::function<HRESULT()> Change;
        std::string Expected;
    } cases[] = {
        {u"Caption", [&] { return SetText(*placed, &_FISControl::put_Caption, u""); }, "String "},
        {u"BackColor", [&] { return placed->put_BackColor(0xFF0000); }, "Long 16711680"},
        {u"ForeColor", [&] { return placed->put_ForeColor(0x80000009); }, "Long -2147483639"},
        {u"Enabled", [&] { return placed->put_Enabled(VARIANT_FALSE); }, "Boolean False"},
        {u"Font", [&] { return placed->putref_Font(NewFont(30).Get()); }, "Object"},
        {u"Inputs", [&] { return SetText(*placed, &_FISControl::put_Inputs, u"14"); }, "String 14"},
        {u"Outputs", [&] { return SetText(*placed, &_FISControl::put_Outputs, u"24"); },
         "String 24"},
        {u"Rules", [&] { return SetText(*placed, &_FISControl::put_Rules, u""); }, "String "},
    };
    std::map<Text, std::string> expected;
    for (const auto& [name, change, value] : cases) {
        EXPECT_EQ(change(), S_OK) << Narrow(name);
        expected[Text(name)] = value;
        EXPECT_EQ(Contents(*SaveToBag(placed, false)), expected) << Narrow(name);
    }
}

TEST_F(PropertyBagSave, TakesAFontOfTheSameAttributesForTheFormsOwn) {
    const auto placed = Place(false);
    placed.Site->Ambients[DISPID_AMBIENT_FONT] =
        Com::Variant(static_cast<IDispatch*>(NewFont(14).Get()));
    ASSERT_EQ(InitNew(placed.Control), S_OK);
    EXPECT_EQ(placed->putref_Font(NewFont(14).Get()), S_OK);
    EXPECT_TRUE(SaveToBag(placed, false)->Writes.empty());
    EXPECT_EQ(placed->putref_Font(NewFont(14, FW_BOLD).Get()), S_OK);
    EXPECT_EQ(SaveToBag(placed, false)->Writes, std::vector<Text>{u"Font"});
}

TEST_F(PropertyBagSave, RoundTrips) {
    const auto bag = [&] {
        const auto placed = Design(Adder);
        EXPECT_EQ(SetText(*placed, &_FISControl::put_Caption, u"Boiler"), S_OK);
        EXPECT_EQ(placed->put_BackColor(0x80000010), S_OK);
        EXPECT_EQ(placed->put_Enabled(VARIANT_FALSE), S_OK);
        return SaveToBag(placed, false);
    }();
    const auto loaded = Place(true);
    ASSERT_EQ(LoadFrom(loaded.Control, *bag), S_OK);
    EXPECT_EQ(Contents(*SaveToBag(loaded, false)), Contents(*bag));
    EXPECT_EQ(FireWith(loaded, 10), 138);
}

TEST_F(PropertyBagSave, OfTheDefaultSystemLoadsAsTheDefaultSystem) {
    const auto created = New(false);
    const auto bag = SaveToBag(created, false);
    ASSERT_TRUE(bag->Values.empty());
    const auto other = Run(Adder);
    const auto loaded = Place(true);
    ASSERT_EQ(LoadFrom(loaded.Control, *bag), S_OK);
    EXPECT_TRUE(SaveToBag(loaded, false)->Values.empty());
}

TEST_F(PropertyBagSave, EndsWhereTheBagFails) {
    const auto placed = New(false);
    ASSERT_EQ(placed->put_Enabled(VARIANT_FALSE), S_OK);
    const auto bag = Com::MakeObject<TestBag>();
    bag->Failures[u"ForeColor"] = STG_E_MEDIUMFULL;
    const auto persistence = As<IPersistPropertyBag>(placed);
    EXPECT_EQ(persistence->Save(bag.Get(), TRUE, TRUE), STG_E_MEDIUMFULL);
    EXPECT_EQ(bag->Writes, (std::vector<Text>{u"Caption", u"Font", u"BackColor"}));
    EXPECT_EQ(As<IPersistStreamInit>(placed)->IsDirty(), S_OK) << "nothing has been saved";
    EXPECT_EQ(persistence->Save(nullptr, TRUE, TRUE), E_POINTER);
}

TEST_F(PropertyBagSave, MakesTheControlCleanWhenAskedTo) {
    const auto placed = New(false);
    const auto dirty = As<IPersistStreamInit>(placed);
    EXPECT_EQ(dirty->IsDirty(), S_OK) << "nobody has kept the new control yet";
    const auto bag = Com::MakeObject<TestBag>();
    EXPECT_EQ(As<IPersistPropertyBag>(placed)->Save(bag.Get(), TRUE, FALSE), S_OK);
    EXPECT_EQ(dirty->IsDirty(), S_FALSE);
    ASSERT_EQ(placed->put_BackColor(1), S_OK);
    EXPECT_EQ(As<IPersistPropertyBag>(placed)->Save(bag.Get(), FALSE, FALSE), S_OK);
    EXPECT_EQ(dirty->IsDirty(), S_OK);
    EXPECT_EQ(As<IPersistPropertyBag>(placed)->Save(bag.Get(), TRUE, FALSE), S_OK);
    EXPECT_EQ(dirty->IsDirty(), S_FALSE);
}

TEST_F(PropertyBagSave, ReportsAnAmbientFontThatFails) {
    const auto placed = New(false);
    placed.Site->Failures[DISPID_AMBIENT_FONT] = E_OUTOFMEMORY;
    const auto bag = Com::MakeObject<TestBag>();
    EXPECT_EQ(As<IPersistPropertyBag>(placed)->Save(bag.Get(), TRUE, TRUE), E_OUTOFMEMORY);
}

TEST_F(PropertyBagSave, KeepsTheLanguageOfTheMomentForTheDefaultCaption) {
    const auto english = New(false);
    const auto chinese = Place(false);
    chinese.Site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(0x804);
    ASSERT_EQ(InitNew(chinese.Control), S_OK);
    // The language is Chinese now, for all controls: English has become a text of its own.
    EXPECT_EQ(Contents(*SaveToBag(english, false)),
              (std::map<Text, std::string>{{u"Caption", "String Quorvane Inference System"}}));
    EXPECT_EQ(SetText(*english, &_FISControl::put_Caption, u"Quorvane \u63A8\u7406\u7CFB\u7EDF"),
              S_OK);
    EXPECT_TRUE(SaveToBag(english, false)->Values.empty());
}

} // namespace
} // namespace Quorvane
