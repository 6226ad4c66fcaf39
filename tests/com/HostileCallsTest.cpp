// SPDX-License-Identifier: MIT
// Late-bound calls that no sane host makes: none may crash, hang or damage the control.
#include <olectl.h>

#include <limits>
#include <random>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/ValueObject.h"

namespace Quorvane {
namespace {

/// Arguments of every kind, right and wrong ones. They share what they refer to.
class Arguments {
  public:
    explicit Arguments(const Placed& placed) {
        const auto dictionary = NewPlatformDictionary();
        const auto object = Com::MakeObject<ValueObject>(Com::Variant(1));
        Com::ComPtr<IFontDisp> font;
        EXPECT_EQ(placed->get_Font(font.Put()), S_OK);
        plain_ = {Com::Variant(),
                  Bare(VT_NULL),
                  Bare(VT_ERROR),
                  Com::Variant(0),
                  Com::Variant(-2147483647),
                  Com::Variant(0.5),
                  Com::Variant(std::numeric_limits<double>::quiet_NaN()),
                  Com::Variant(std::numeric_limits<double>::infinity()),
                  Com::Variant(true),
                  TextValue(u"X"),
                  TextValue(u""),
                  TextValue(u"12"),
                  TextValue(Text(70000, u'x')),
                  Typed(VT_I1, 1),
                  Typed(VT_UI1, 1),
                  Typed(VT_I2, 1),
                  Typed(VT_UI2, 1),
                  Typed(VT_UI4, 1),
                  Typed(VT_I8, 1),
                  Typed(VT_UI8, 1),
                  Typed(VT_R4, 1),
                  Typed(VT_CY, 1),
                  Typed(VT_DATE, 1),
                  Typed(VT_DECIMAL, 1),
                  ArrayValue(),
                  Com::Variant(static_cast<IDispatch*>(nullptr)),
                  Com::Variant(static_cast<IDispatch*>(dictionary.Get())),
                  Com::Variant(static_cast<IDispatch*>(font.Get())),
                  object->AsVariant()};
        VARIANT unknown{};
        unknown.vt = VT_UNKNOWN;
        plain_.emplace_back(unknown);
        unknown.punkVal = object.Get();
        plain_.emplace_back(unknown);
        AddReferences();
    }

    const std::vector<VARIANT>& All() const { return all_; }

  private:
    void AddReferences() {
        for (Com::Variant& value : plain_) {
            all_.push_back(value.Get());
            VARIANT reference{};
            reference.vt = VT_BYREF | VT_VARIANT;
            reference.pvarVal = &value.Get();
            all_.push_back(reference);
            const VARTYPE type = value.Type();
            if (type != VT_EMPTY && type != VT_NULL && type != VT_DECIMAL) {
                all_.push_back(ByReference(value.Get()));
                // A reference to nothing at all.
                all_.push_back(ByReference(value.Get()));
                all_.back().byref = nullptr;
            }
        }
    }

    std::vector<Com::Variant> plain_;
    std::vector<VARIANT> all_;
};

class HostileCalls : public ControlTest {
  protected:
    /// Makes one random call on an object.
    void CallAtRandom(IDispatch& target, const std::vector<DISPID>& members,
                      const std::vector<VARIANT>& arguments) {
        constexpr WORD flags[] = {DISPATCH_PROPERTYGET,
                                  DISPATCH_METHOD,
                                  DISPATCH_PROPERTYPUT,
                                  DISPATCH_PROPERTYPUTREF,
                                  DISPATCH_PROPERTYGET | DISPATCH_METHOD,
                                  DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF,
                                  0,
                                  0xFFFF};
        constexpr DISPID names[] = {DISPID_PROPERTYPUT, DISPID_PROPERTYPUT, 0, 1, 7, -1};
        VARIANT given[4]{};
        DISPID named[4]{};
        for (std::size_t i = 0; i < 4; ++i) {
            given[i] = arguments[Below(arguments.size())];
            named[i] = names[Below(std::size(names))];
        }
        DISPPARAMS parameters{given, named, static_cast<UINT>(Below(5)), 0};
        parameters.cNamedArgs = static_cast<UINT>(Below(3) == 0 ? Below(5) : Below(2));
        Com::Variant result;
        EXCEPINFO exception{};
        UINT badArgument = 0;
        target.Invoke(members[Below(members.size())], IID_NULL, LOCALE_USER_DEFAULT,
                      flags[Below(std::size(flags))], &parameters,
                      Below(2) == 0 ? result.Put() : nullptr, Below(2) == 0 ? &exception : nullptr,
                      Below(2) == 0 ? &badArgument : nullptr);
        ::SysFreeString(exception.bstrSource);
        ::SysFreeString(exception.bstrDescription);
        ::SysFreeString(exception.bstrHelpFile);
    }

    /// The control must still do its work.
    static void ExpectWhole(const Placed& placed) {
        ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
        EXPECT_EQ(FireWith(placed, 1), 129);
        EXPECT_EQ(FireWith(placed, TextValue(u"none")), 500);
    }

  private:
    std::size_t Below(std::size_t limit) { return random_() % limit; }

    std::mt19937 random_{20260101};
};

TEST_F(HostileCalls, OfTheControlDoNoHarm) {
    // All but the about box and the batch, which show messages.
    const std::vector<DISPID> members = {
        DISPID_CAPTION, DISPID_ENABLED, DISPID_FONT,   DISPID_BACKCOLOR, DISPID_FORECOLOR,
        0x68030007,     0x68030006,     0x68030005,    0x68030004,       0x68030003,
        0x68030002,     0x68030001,     0x68030000,    0x6003000B,       0x60030012,
        DISPID_VALUE,   DISPID_NEWENUM, DISPID_UNKNOWN};
    for (const bool runMode : {true, false}) {
        const auto placed = runMode ? Run(Adder) : Design(Adder);
        for (int round = 0; round < 20; ++round) {
            const Arguments arguments(placed);
            for (int i = 0; i < 500; ++i) {
                CallAtRandom(*placed, members, arguments.All());
            }
            EXPECT_EQ(placed->putref_ErrOutVals(nullptr),
                      runMode ? S_OK : static_cast<HRESULT>(CTL_E_SETNOTSUPPORTED));
        }
        ExpectWhole(Run(Adder));
    }
}

TEST_F(HostileCalls, OfABatchFailWithItsMessage) {
    const auto placed = Run(Adder);
    const Arguments arguments(placed);
    MessageBoxes boxes;
    for (int i = 0; i < 100; ++i) {
        CallAtRandom(*placed, {0x60030014}, arguments.All());
    }
    for (const ShownBox& box : boxes.Shown) {
        EXPECT_EQ(box.Message, u"Invalid Evaluation.");
    }
    EXPECT_FALSE(boxes.Shown.empty());
    ExpectWhole(placed);
}

TEST_F(HostileCalls, OfADictionaryDoNoHarm) {
    const std::vector<DISPID> members = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, -4, -1};
    const auto placed = Run(Adder);
    for (int round = 0; round < 20; ++round) {
        ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
        const Arguments arguments(placed);
        const auto values = InVals(placed);
        for (int i = 0; i < 500; ++i) {
            CallAtRandom(*values, members, arguments.All());
        }
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(values->RemoveAll(), S_OK) << "objects of the test go";
    }
    ExpectWhole(placed);
}

} // namespace
} // namespace Quorvane
