// SPDX-License-Identifier: MIT
// Loading the control from a property bag.
#include <olectl.h>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/TestFont.h"
#include "tests/com/support/ValueObject.h"

namespace Quorvane {
namespace {

class PropertyBagLoad : public ControlTest {
  protected:
    static OLE_COLOR BackColor(const Placed& placed) {
        OLE_COLOR color = 0;
        EXPECT_EQ(placed->get_BackColor(&color), S_OK);
        return color;
    }
    static OLE_COLOR ForeColor(const Placed& placed) {
        OLE_COLOR color = 0;
        EXPECT_EQ(placed->get_ForeColor(&color), S_OK);
        return color;
    }
    static bool Enabled(const Placed& placed) {
        VARIANT_BOOL enabled = 0;
        EXPECT_EQ(placed->get_Enabled(&enabled), S_OK);
        return enabled != VARIANT_FALSE;
    }
    static Com::ComPtr<IFontDisp> Font(const Placed& placed) {
        Com::ComPtr<IFontDisp> font;
        EXPECT_EQ(placed->get_Font(font.Put()), S_OK);
        return font;
    }
    static Text Caption(const Placed& placed) {
        return GetText(*placed.Control, &_FISControl::get_Caption);
    }

    /// Loads a running control from a bag with one property and returns the result.
    HRESULT LoadOne(const Placed& placed, TextView name, const Com::Variant& value) const {
        const auto bag = Com::MakeObject<TestBag>();
        bag->Values.emplace(name, value);
        return LoadFrom(placed.Control, *bag);
    }
};

/// Every property with a value that is not its default.
Com::ComPtr<TestBag> FullBag(const System& system) {
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(system));
    bag->Values[u"Caption"] = TextValue(u"Boiler");
    bag->Values[u"Font"] = Com::Variant(static_cast<IDispatch*>(NewFont(20).Get()));
    bag->Values[u"BackColor"] = Com::Variant(0x00112233);
    bag->Values[u"ForeColor"] = Com::Variant(0x00445566);
    bag->Values[u"Enabled"] = Com::Variant(false);
    return bag;
}

TEST_F(PropertyBagLoad, ReadsThePropertiesInTheirOrder) {
    const auto placed = Place(true);
    const auto bag = Com::MakeObject<TestBag>();
    EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    const std::vector<Text> expected = {u"Caption", u"Font",      u"BackColor", u"ForeColor",
                                        u"Font",    u"BackColor", u"ForeColor", u"Enabled",
                                        u"Inputs",  u"Outputs",   u"Rules"};
    EXPECT_EQ(bag->Reads, expected);
}

TEST_F(PropertyBagLoad, TakesEveryValueOfTheBag) {
    const auto placed = Place(true);
    const auto bag = FullBag(Adder);
    EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    EXPECT_EQ(Caption(placed), u"Boiler");
    EXPECT_TRUE(Com::IsSameObject(Font(placed).Get(), bag->Values[u"Font"].Get().pdispVal));
    EXPECT_EQ(BackColor(placed), 0x00112233u);
    EXPECT_EQ(ForeColor(placed), 0x00445566u);
    EXPECT_FALSE(Enabled(placed));
    EXPECT_EQ(FireWith(placed, 2), 130);
}

TEST_F(PropertyBagLoad, HandsTheErrorLogToTheBag) {
    class Log final : public Com::ComObject<IErrorLog> {
      public:
        STDMETHODIMP AddError(LPCOLESTR, EXCEPINFO*) noexcept override { return S_OK; }
    };
    const auto placed = Place(true);
    const auto bag = Com::MakeObject<TestBag>();
    const auto log = Com::MakeObject<Log>();
    EXPECT_EQ(LoadFrom(placed.Control, *bag, log.Get()), S_OK);
    EXPECT_EQ(bag->Log, log.Get());
}

TEST_F(PropertyBagLoad, NeedsABag) {
    const auto placed = Place(true);
    EXPECT_EQ(As<IPersistPropertyBag>(placed)->Load(nullptr, nullptr), E_POINTER);
}

TEST_F(PropertyBagLoad, WithoutTheTextsLoadsTheBuiltInSystem) {
    const auto created = New(true);
    std::vector<Text> builtIn;
    for (const auto getter :
         {&_FISControl::get_Inputs, &_FISControl::get_Outputs, &_FISControl::get_Rules}) {
        builtIn.push_back(GetText(*created, getter));
    }
    const auto placed = Run(Adder);
    const auto bag = Com::MakeObject<TestBag>();
    EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Inputs), builtIn[0]);
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Outputs), builtIn[1]);
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Rules), builtIn[2]);
    // A load at run time has prepared the rules: every output is there.
    LONG count = 0;
    EXPECT_EQ(OutVals(placed)->get_Count(&count), S_OK);
    EXPECT_GT(count, 0);
}

TEST_F(PropertyBagLoad, ConvertsWhatTheBagGives) {
    const auto placed = Place(true);
    const struct {
        TextView Name;
        Com::Variant Value;
        std::string Expected;
    } cases[] = {
        {u"Caption", Com::Variant(12), "12"},
        {u"Caption", Com::Variant(0.5), "0.5"},
        {u"BackColor", Com::Variant(-2147483643), "80000005"},
        {u"BackColor", Typed(VT_UI4, 2147483653.0), "80000005"},
        {u"BackColor", Typed(VT_I8, 2147483653.0), "80000005"},
        {u"BackColor", Com::Variant(2147483653.0), "80000005"},
        {u"BackColor", TextValue(u"-2147483643"), "80000005"},
        {u"BackColor", TextValue(u"2147483653"), "80000005"},
        {u"BackColor", TextValue(u"255"), "ff"},
        {u"BackColor", Typed(VT_I2, 15), "f"},
        {u"Enabled", Com::Variant(0), "False"},
        {u"Enabled", Com::Variant(5), "True"},
        {u"Enabled", TextValue(u"False"), "False"},
        {u"Enabled", TextValue(u"True"), "True"},
        {u"Enabled", TextValue(u"0"), "False"},
        // A bag that says yes but has nothing.
        {u"Caption", Com::Variant(), "Quorvane Inference System"},
        {u"BackColor", Com::Variant(), "80000005"},
        {u"Enabled", Com::Variant(), "True"},
    };
    for (const auto& [name, value, expected] : cases) {
        EXPECT_EQ(LoadOne(placed, name, value), S_OK) << Narrow(name) << ' ' << Describe(value);
        std::string actual;
        if (name == u"Caption") {
            actual = Narrow(Caption(placed));
        } else if (name == u"Enabled") {
            actual = Enabled(placed) ? "True" : "False";
        } else {
            char digits[16];
            std::snprintf(digits, sizeof digits, "%lx", BackColor(placed));
            actual = digits;
        }
        EXPECT_EQ(actual, expected) << Narrow(name) << ' ' << Describe(value);
    }
}

TEST_F(PropertyBagLoad, EndsAtAValueThatDoesNotConvert) {
    const auto placed = Place(true);
    const struct {
        TextView Name;
        Com::Variant Value;
    } cases[] = {
        {u"Caption", Bare(VT_NULL)},
        {u"Caption", ArrayValue()},
        {u"BackColor", TextValue(u"red")},
        {u"BackColor", Com::Variant(4294967296.0)},
        {u"BackColor", Com::Variant(-2147483649.0)},
        {u"ForeColor", Bare(VT_NULL)},
        {u"Enabled", TextValue(u"perhaps")},
        {u"Font", TextValue(u"Tahoma")},
        {u"Font", Com::Variant(static_cast<IDispatch*>(nullptr))},
        {u"Font", Com::Variant(static_cast<IDispatch*>(NewPlatformDictionary().Get()))},
        {u"Inputs", Bare(VT_NULL)},
    };
    for (const auto& [name, value] : cases) {
        EXPECT_TRUE(FAILED(LoadOne(placed, name, value))) << Narrow(name) << ' ' << Describe(value);
        EXPECT_EQ(LoadSystem(placed, Adder), S_OK) << "the next load works";
    }
}

/// Containers word it in their own ways that a bag lacks a property.
TEST_F(PropertyBagLoad, TakesTheDefaultForWhatTheBagLacks) {
    constexpr HRESULT answers[] = {E_FAIL,
                                   E_INVALIDARG,
                                   S_FALSE,
                                   DISP_E_MEMBERNOTFOUND,
                                   DISP_E_UNKNOWNNAME,
                                   STG_E_FILENOTFOUND,
                                   HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)};
    for (const HRESULT answer : answers) {
        const auto placed = Place(true);
        const auto bag = FullBag(Adder);
        for (const TextView name : {u"Caption", u"Font", u"BackColor", u"ForeColor", u"Enabled"}) {
            bag->Failures[Text(name)] = answer;
        }
        EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK) << std::hex << answer;
        EXPECT_EQ(Caption(placed), u"Quorvane Inference System") << std::hex << answer;
        EXPECT_TRUE(Font(placed)) << std::hex << answer;
        EXPECT_EQ(BackColor(placed), 0x80000005u) << std::hex << answer;
        EXPECT_EQ(ForeColor(placed), 0x80000008u) << std::hex << answer;
        EXPECT_TRUE(Enabled(placed)) << std::hex << answer;
        EXPECT_EQ(FireWith(placed, 2), 130) << std::hex << answer;
        for (const TextView name : {u"Inputs", u"Outputs", u"Rules"}) {
            bag->Failures[Text(name)] = answer;
        }
        EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK) << std::hex << answer;
        EXPECT_TRUE(SaveToBag(placed, false)->Values.empty()) << "the built-in system";
    }
}

TEST_F(PropertyBagLoad, EndsAtAnObjectThatIsItsOwnDefault) {
    const auto self = Com::MakeObject<ValueObject>(Com::Variant());
    self->Value = self->AsVariant();
    const auto placed = Place(true);
    for (const TextView name : {u"Caption", u"BackColor", u"Enabled", u"Inputs"}) {
        EXPECT_EQ(LoadOne(placed, name, self->AsVariant()), DISP_E_TYPEMISMATCH) << Narrow(name);
    }
    self->Value = TextValue(u"Boiler");
    EXPECT_EQ(LoadOne(placed, u"Caption", self->AsVariant()), S_OK);
    EXPECT_EQ(Caption(placed), u"Boiler");
}

TEST_F(PropertyBagLoad, EndsWhereTheBagFailsAndKeepsWhatItHasRead) {
    const struct {
        TextView Name;
        /// How many reads there are up to the failing one.
        std::size_t Reads;
    } cases[] = {{u"Caption", 1}, {u"Font", 2},   {u"BackColor", 3}, {u"ForeColor", 4},
                 {u"Enabled", 8}, {u"Inputs", 9}, {u"Outputs", 10},  {u"Rules", 11}};
    for (const auto& [name, reads] : cases) {
        const auto placed = Run(TwoInputs);
        const auto bag = FullBag(Adder);
        bag->Failures[Text(name)] = STG_E_ACCESSDENIED;
        EXPECT_EQ(LoadFrom(placed.Control, *bag), STG_E_ACCESSDENIED) << Narrow(name);
        EXPECT_EQ(bag->Reads.size(), reads) << Narrow(name);

        EXPECT_EQ(Caption(placed) == u"Boiler", reads > 1) << Narrow(name);
        EXPECT_EQ(PointsOf(Font(placed).Get()) == 20, reads > 2) << Narrow(name);
        EXPECT_EQ(BackColor(placed) == 0x00112233u, reads > 3) << Narrow(name);
        EXPECT_EQ(ForeColor(placed) == 0x00445566u, reads > 4) << Narrow(name);
        EXPECT_EQ(!Enabled(placed), reads > 8) << Narrow(name);
        EXPECT_EQ(GetText(*placed, &_FISControl::get_Inputs),
                  Stored(reads > 9 ? Adder.Inputs : TwoInputs.Inputs));
        EXPECT_EQ(GetText(*placed, &_FISControl::get_Outputs),
                  Stored(reads > 10 ? Adder.Outputs : TwoInputs.Outputs));
        // The model has not been parsed anew.
        EXPECT_EQ(KeysOf(*InVals(placed)), (std::vector<std::string>{"String A", "String B"}));

        bag->Failures.clear();
        EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK) << Narrow(name);
        EXPECT_EQ(FireWith(placed, 3), 131) << Narrow(name);
    }
}

TEST_F(PropertyBagLoad, MayReleaseTheControlMeanwhile) {
    auto control = Create();
    // The host's only reference is `control`, which the bag lets go of.
    IPersistPropertyBag* const persist = control.As<IPersistPropertyBag>().Get();
    const auto bag = Com::MakeObject<TestBag>();
    bag->OnRead = [&control](const Text& name) {
        if (name == u"Caption") {
            control.Reset();
        }
    };
    EXPECT_EQ(persist->Load(bag.Get(), nullptr), S_OK);
    EXPECT_FALSE(control);
}

TEST_F(PropertyBagLoad, OfDisabledLeavesTheControlReadable) {
    const auto placed = Place(false);
    ASSERT_EQ(LoadOne(placed, u"Enabled", Com::Variant(false)), S_OK);
    EXPECT_FALSE(Enabled(placed));
    ASSERT_EQ(LoadOne(placed, u"Enabled", Com::Variant(true)), S_OK);
    EXPECT_TRUE(Enabled(placed));
}

TEST_F(PropertyBagLoad, TakesTheFormsFontWhereTheBagHasNone) {
    const auto placed = Place(true);
    const auto formFont = NewFont(14, FW_BOLD);
    placed.Site->Ambients[DISPID_AMBIENT_FONT] =
        Com::Variant(static_cast<IDispatch*>(formFont.Get()));
    const auto bag = Com::MakeObject<TestBag>();
    EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    EXPECT_EQ(PointsOf(Font(placed).Get()), 14);
    EXPECT_EQ(WeightOf(Font(placed).Get()), FW_BOLD);
}

TEST_F(PropertyBagLoad, HasAFontThoughTheFormOffersAnEmptyOne) {
    const auto placed = Place(true);
    for (const auto& font : {Com::Variant(), Com::Variant(static_cast<IDispatch*>(nullptr))}) {
        placed.Site->Ambients[DISPID_AMBIENT_FONT] = font;
        const auto bag = Com::MakeObject<TestBag>();
        EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
        EXPECT_TRUE(Font(placed));
    }
}

/// Texts that no host can load.
class UnreadableSystem : public ControlTest {};

TEST_F(UnreadableSystem, FailsTheLoadAndIsFollowedByOneThatWorks) {
    const auto inputs = [](TextView plain) { return System{plain, Adder.Outputs, Adder.Rules}; };
    const auto outputs = [](TextView plain) { return System{Adder.Inputs, plain, Adder.Rules}; };
    const struct {
        System Texts;
        std::uint32_t Error;
    } cases[] = {
        {inputs(u"X/128/-128"), 0x800A0009},
        {inputs(u"X/128"), 0x800A0009},
        {inputs(u"X/a/0/Low,0,0,0,1"), 0x800A000D},
        {inputs(u"X/1,5/0/Low,0,0,0,1"), 0x800A000D},
        {inputs(u"X/nan/0/Low,0,0,0,1"), 0x800A000D},
        {inputs(u"X/1E400/0/Low,0,0,0,1"), 0x800A0006},
        {inputs(u"X/1/0/Low,0,0,1"), 0x800A0009},
        {inputs(u"X/1/0/Low,0,0,0,1|x/1/0/Low,0,0,0,1"), 0x800A01C9},
        {inputs(u"X/1/0/Low,0,0,0,1;LOW,0,0,0,1"), 0x800A01C9},
        {inputs(u"X/1/0/Low,0,0,0,1||"), 0x800A0009},
        {outputs(u"Y/1/0/Zero"), 0x800A0009},
        {outputs(u"Y/1E308/1E308/Zero,0"), 0x800A0006},
        {{Adder.Inputs, Adder.Outputs, u"X>Low/Y<Zero:1|x>low/y<zero:1"}, 0x800A01C9},
        {{Adder.Inputs, Adder.Outputs, u"X>Low/Y<Zero"}, 0x80040052},
        {{Adder.Inputs, Adder.Outputs, u"X>Low:1"}, 0x80040052},
        {{Adder.Inputs, Adder.Outputs, u"X/Y<Zero:1"}, 0x80040052},
        {{Adder.Inputs, Adder.Outputs, u"X>Low/Y<None:1"}, 0x80040052},
        {{Adder.Inputs, Adder.Outputs, u"X>Low;X>Low/Y<Zero:1"}, 0x80040052},
        {{Adder.Inputs, Adder.Outputs, u"X>Low/Y<Zero:heavy"}, 0x80040052},
    };
    for (const auto& [texts, error] : cases) {
        const auto placed = Place(true);
        EXPECT_EQ(LoadSystem(placed, texts), static_cast<HRESULT>(error)) << Narrow(texts.Inputs);
        const auto sink = Com::MakeObject<EventSink>();
        const Connection connection(placed.Control.Get(), sink.Get());
        EXPECT_EQ(placed->Fire(), S_OK) << Narrow(texts.Inputs);
        EXPECT_EQ(sink->Count, 1);
        EXPECT_EQ(LoadSystem(placed, Adder), S_OK);
        EXPECT_EQ(FireWith(placed, 1), 129);
    }
}

TEST_F(UnreadableSystem, IsOneWhoseTextDoesNotDecode) {
    for (const TextView text : {u"0G", u"  ", u"1", u"14G", u"\u4E2D\u6587"}) {
        const auto placed = Place(true);
        const auto bag = Com::MakeObject<TestBag>(PropertiesOf(Adder));
        bag->Values[u"Inputs"] = TextValue(text);
        EXPECT_TRUE(FAILED(LoadFrom(placed.Control, *bag))) << Narrow(text);
        EXPECT_EQ(GetText(*placed, &_FISControl::get_Inputs), text);
    }
}

TEST_F(UnreadableSystem, AtDesignTimeIsNoRuleBaseThatDoesNotPrepare) {
    const auto placed = Place(false);
    EXPECT_EQ(LoadSystem(placed, {Adder.Inputs, Adder.Outputs, u"X>Low/Y<Zero"}), S_OK);
}

TEST_F(UnreadableSystem, IsNotOneOfEmptyTexts) {
    const auto placed = Place(true);
    EXPECT_EQ(LoadSystem(placed, {u"", u"", u""}), S_OK);
    EXPECT_TRUE(KeysOf(*InVals(placed)).empty());
    EXPECT_TRUE(KeysOf(*OutVals(placed)).empty());
}

TEST_F(UnreadableSystem, IsNotOneInLowerCaseDigitsOrWithoutTerms) {
    const auto placed = Place(true);
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(Adder));
    Text lower = Stored(Adder.Inputs);
    for (char16_t& digit : lower) {
        digit = digit >= u'A' ? static_cast<char16_t>(digit + 0x20) : digit;
    }
    bag->Values[u"Inputs"] = TextValue(lower);
    EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    EXPECT_EQ(FireWith(placed, 1), 129);
    EXPECT_EQ(LoadSystem(placed, {u"X/1/0/", u"Y/1/0/", u""}), S_OK);
    EXPECT_EQ(KeysOf(*InVals(placed)), std::vector<std::string>{"String X"});
}

} // namespace
} // namespace Quorvane
