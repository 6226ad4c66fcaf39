// SPDX-License-Identifier: MIT
// What a host may give as an input, and what comes of it.
#include <cmath>
#include <limits>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/ValueObject.h"

namespace Quorvane {
namespace {

/// The output of an input outside every term, and of a failed cycle.
constexpr double NoRuleFires = 500;
constexpr double Failed = 900;

class InputValues : public ControlTest {
  protected:
    /// A control whose output is the input plus 128, 500 or 900.
    Placed RunAdder() const {
        Placed placed = Run(Adder);
        const auto errors = NewPlatformDictionary();
        PutItem(errors, u"Y", Failed);
        EXPECT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
        return placed;
    }

    struct Case {
        Com::Variant Input;
        double Expected;
    };

    static void ExpectOutputs(const Placed& placed, const std::vector<Case>& cases) {
        for (const auto& [input, expected] : cases) {
            // Another value between, so that no case lives on what the one before has left.
            EXPECT_EQ(FireWith(placed, -77), 51);
            EXPECT_EQ(FireWith(placed, input), expected) << Describe(input);
            EXPECT_EQ(Describe(ItemOf(InVals(placed), u"X")), Describe(input))
                << "the value is kept as it is";
        }
    }
};

TEST_F(InputValues, MayBeNumbersOfAnyWidth) {
    ExpectOutputs(RunAdder(), {
                                  {Typed(VT_I1, -5), 123},
                                  {Typed(VT_UI1, 100), 228},
                                  {Typed(VT_UI1, 200), NoRuleFires},
                                  {Typed(VT_I2, -128), 0},
                                  {Typed(VT_UI2, 128), 256},
                                  {Typed(VT_UI2, 129), NoRuleFires},
                                  {Typed(VT_I4, 7), 135},
                                  {Typed(VT_UI4, 7), 135},
                                  {Typed(VT_UI4, 4294967295.0), NoRuleFires},
                                  {Typed(VT_INT, -7), 121},
                                  {Typed(VT_UINT, 9), 137},
                                  {Typed(VT_I8, -64), 64},
                                  {Typed(VT_I8, 9007199254740992.0), NoRuleFires},
                                  {Typed(VT_UI8, 64), 192},
                                  {Typed(VT_R4, 0.5), 128.5},
                                  {Typed(VT_R8, -0.25), 127.75},
                                  {Typed(VT_CY, 12.5), 140.5},
                                  {Typed(VT_DATE, 12.25), 140.25},
                                  {Typed(VT_DECIMAL, -12.5), 115.5},
                              });
}

TEST_F(InputValues, MayBeTruthValues) {
    ExpectOutputs(RunAdder(), {{Com::Variant(true), 127}, {Com::Variant(false), 128}});
}

TEST_F(InputValues, MayBeNumericTexts) {
    Text separator = u".";
    wchar_t user[8]{};
    if (::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, user, 8) > 1) {
        separator = Com::ToText(user);
    }
    const auto number = [&](TextView whole, TextView fraction) {
        return TextValue(Text(whole) + separator + Text(fraction));
    };
    ExpectOutputs(RunAdder(), {
                                  {TextValue(u"12"), 140},
                                  {number(u"12", u"5"), 140.5},
                                  {number(u"", u"5"), 128.5},
                                  {number(u"5", u""), 133},
                                  {TextValue(u"  -3  "), 125},
                                  {TextValue(u"\t4"), 132},
                                  {TextValue(u"+4"), 132},
                                  {TextValue(u"1E1"), 138},
                                  {TextValue(u"1e+1"), 138},
                                  {TextValue(u"5e-1"), 128.5},
                                  {TextValue(u"1D1"), 138},
                                  {TextValue(u"-0"), 128},
                                  {TextValue(u"1E-400"), 128},
                                  // The platform's other forms.
                                  {TextValue(u"&H10"), 144},
                                  {TextValue(u"(5)"), 123},
                              });
}

TEST_F(InputValues, OutsideTheUniverseBelongToNoTerm) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    ExpectOutputs(RunAdder(), {
                                  {Com::Variant(std::nextafter(128.0, infinity)), NoRuleFires},
                                  {Com::Variant(std::nextafter(-128.0, -infinity)), NoRuleFires},
                                  {Com::Variant(infinity), NoRuleFires},
                                  {Com::Variant(-infinity), NoRuleFires},
                                  {Com::Variant(1e308), NoRuleFires},
                                  {Com::Variant(128.0), 256},
                                  {Com::Variant(-128.0), 0},
                              });
    const auto placed = RunAdder();
    EXPECT_EQ(FireWith(placed, std::numeric_limits<double>::quiet_NaN()), NoRuleFires);
}

TEST_F(InputValues, MayBeObjectsWithADefaultProperty) {
    const auto number = Com::MakeObject<ValueObject>(Com::Variant(5.0));
    const auto text = Com::MakeObject<ValueObject>(TextValue(u"7"));
    const auto chain = Com::MakeObject<ValueObject>(number->AsVariant());
    ExpectOutputs(
        RunAdder(),
        {{number->AsVariant(), 133}, {text->AsVariant(), 135}, {chain->AsVariant(), 133}});
}

TEST_F(InputValues, ThatAreNoNumbersFailTheCycle) {
    const auto failing = Com::MakeObject<ValueObject>(Com::Variant(5.0));
    failing->Result = E_FAIL;
    const auto empty = Com::MakeObject<ValueObject>(Com::Variant());
    const auto word = Com::MakeObject<ValueObject>(TextValue(u"five"));
    const auto endless = Com::MakeObject<ValueObject>(Com::Variant());
    endless->Value = endless->AsVariant();
    const Com::Variant withoutDefault(static_cast<IDispatch*>(NewPlatformDictionary().Get()));

    ExpectOutputs(RunAdder(), {
                                  {Com::Variant(), Failed},
                                  {Bare(VT_NULL), Failed},
                                  {Bare(VT_ERROR), Failed},
                                  {ArrayValue(), Failed},
                                  {TextValue(u""), Failed},
                                  {TextValue(u" "), Failed},
                                  {TextValue(u"five"), Failed},
                                  {TextValue(u"1E"), Failed},
                                  {TextValue(u"0x10"), Failed},
                                  {TextValue(u"nan"), Failed},
                                  {TextValue(u"inf"), Failed},
                                  {TextValue(u"1E400"), Failed},
                                  {TextValue(u"\uFF15"), Failed},
                                  {Com::Variant(static_cast<IDispatch*>(nullptr)), Failed},
                                  {failing->AsVariant(), Failed},
                                  {word->AsVariant(), Failed},
                                  {endless->AsVariant(), Failed},
                                  {withoutDefault, Failed},
                              });
    endless->Value = Com::Variant();
}

TEST_F(InputValues, GivenByReferenceAreTakenAsTheyAre) {
    const auto placed = RunAdder();
    Com::Variant variants[] = {Com::Variant(3.0), Com::Variant(3), Typed(VT_I2, 3),
                               TextValue(u"3"),   Typed(VT_CY, 3), Typed(VT_DECIMAL, 3),
                               Typed(VT_DATE, 3)};
    for (Com::Variant& variant : variants) {
        VARIANT toVariant{};
        toVariant.vt = VT_BYREF | VT_VARIANT;
        toVariant.pvarVal = &variant.Get();
        VARIANT typed{};
        if (variant.Type() == VT_DECIMAL) {
            typed.vt = VT_BYREF | VT_DECIMAL;
            typed.pdecVal = &variant.Get().decVal;
        } else {
            typed = ByReference(variant.Get());
        }
        for (const VARIANT& reference : {toVariant, typed}) {
            EXPECT_EQ(FireWith(placed, -77), 51);
            PutItem(*InVals(placed), u"X", reference);
            EXPECT_EQ(placed->Fire(), S_OK);
            EXPECT_EQ(Output(placed, u"Y"), 131) << Describe(variant);
            EXPECT_EQ(Describe(ItemOf(InVals(placed), u"X")), Describe(variant));
        }
    }
}

TEST_F(InputValues, StartAtTheLowerBounds) {
    const auto placed = Run(TwoInputs);
    EXPECT_EQ(KeysOf(*InVals(placed)), (std::vector<std::string>{"String A", "String B"}));
    EXPECT_EQ(Describe(ItemOf(InVals(placed), u"A")), "Double 0");
    EXPECT_EQ(Describe(ItemOf(InVals(placed), u"b")), "Double 0") << "whatever the case";
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Sum"), 0);
}

TEST_F(InputValues, ThatAreMissingFailTheCycleEvenForARuleThatDoesNotUseThem) {
    const auto placed = RunAdder();
    ASSERT_EQ(LoadSystem(placed, {Adder.Inputs, Adder.Outputs, u"X>[NONE]/Y<Top:1"}), S_OK);
    EXPECT_EQ(FireWith(placed, 1), 256);
    EXPECT_EQ(InVals(placed)->RemoveAll(), S_OK);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(Output(placed, u"Y"), Failed);
    EXPECT_TRUE(KeysOf(*InVals(placed)).empty()) << "reading has added nothing";
}

TEST_F(InputValues, OfAnObjectMayFireFromWithinTheCycle) {
    const auto placed = RunAdder();
    const auto object = Com::MakeObject<ValueObject>(Com::Variant(5.0));
    int nested = 0;
    object->OnRead = [&] {
        if (++nested == 1) {
            EXPECT_EQ(placed->Fire(), S_OK);
        }
    };
    EXPECT_EQ(FireWith(placed, object->AsVariant()), 133);
    EXPECT_GE(nested, 2);
}

TEST_F(InputValues, OfAnObjectMayChangeEverythingFromWithinTheCycle) {
    const auto placed = RunAdder();
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(placed.Control.Get(), sink.Get());
    const auto object = Com::MakeObject<ValueObject>(Com::Variant(5.0));
    const std::function<void()> changes[] = {
        [&] { EXPECT_EQ(InVals(placed)->RemoveAll(), S_OK); },
        [&] { EXPECT_EQ(placed->putref_InVals(NewPlatformDictionary().Get()), S_OK); },
        [&] { EXPECT_EQ(placed->putref_DefOutVals(NewPlatformDictionary().Get()), S_OK); },
        [&] { EXPECT_EQ(LoadSystem(placed, TwoInputs), S_OK); },
        [&] { New(false); },
        [&] { Create(); },
    };
    for (const auto& change : changes) {
        ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
        object->OnRead = [&object, &change] {
            // Once: what is changed may run the cycle again.
            object->OnRead = {};
            change();
        };
        PutItem(InVals(placed), u"X", object->AsVariant());
        sink->Count = 0;
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(sink->Count, 1);
        EXPECT_FALSE(object->OnRead) << "the object has been read";
    }
    ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_EQ(FireWith(placed, 1), 129);
}

} // namespace
} // namespace Quorvane
