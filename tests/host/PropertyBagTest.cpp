// SPDX-License-Identifier: MIT
// PropertyBagTest: what a control reads from the bag and writes into it.
#include "host/container/PropertyBag.h"

#include <limits>

#include "com/Scoped.h"
#include "host/container/ErrorLog.h"
#include "host/container/FormFont.h"
#include "tests/host/Apartment.h"

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;
using namespace std::string_literals;

class PropertyBagTest : public InApartment {
  protected:
    void SetUp() override {
        log_ = Com::MakeObject<ErrorLog>([this](const Text& line) { errors_.push_back(line); });
    }

    HRESULT Read(const FormValue& stored, VARTYPE wanted, Com::Variant& value) {
        FormProperties properties;
        properties.Set({u"Key", stored});
        value.Get().vt = wanted;
        return Com::MakeObject<PropertyBag>(properties)->Read(L"Key", &value.Get(), log_.Get());
    }

    // What the bag holds after a control has written `value`, read from outside.
    HRESULT Write(const wchar_t* key, VARIANT value, FormProperties& stored) {
        const auto bag = Com::MakeObject<PropertyBag>();
        const HRESULT result = bag->Write(key, &value);
        stored = bag->Properties();
        return result;
    }

    Com::ComPtr<ErrorLog> log_;
    std::vector<Text> errors_;
};

Com::Variant Typed(VARTYPE type, TextView text) {
    return Com::ChangeType(Com::Variant(text).Get(), type,
                           MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), 0),
                           VARIANT_ALPHABOOL);
}

TEST_F(PropertyBagTest, AnAbsentKeyIsAnInvalidArgument) {
    Com::Variant value(7);
    EXPECT_EQ(Com::MakeObject<PropertyBag>()->Read(L"Key", &value.Get(), log_.Get()), E_INVALIDARG);
    EXPECT_EQ(value.Get().vt, VT_EMPTY);
    EXPECT_TRUE(errors_.empty());
}

TEST_F(PropertyBagTest, GivesTheTypeAskedFor) {
    const FormValue text = u"12"s;
    const struct {
        FormValue Stored;
        VARTYPE Wanted;
        Com::Variant Expected;
    } cases[] = {
        {true, VT_BOOL, Com::Variant(true)},
        {true, VT_I4, Com::Variant(-1)},
        {false, VT_BSTR, Com::Variant(u"False")},
        {-1, VT_BOOL, Com::Variant(true)},
        {0, VT_BOOL, Com::Variant(false)},
        {u"True"s, VT_BOOL, Com::Variant(true)},
        {12, VT_BSTR, Com::Variant(u"12")},
        {12, VT_I2, Typed(VT_I2, u"12")},
        {12, VT_R8, Com::Variant(12.0)},
        {0.5, VT_R4, Typed(VT_R4, u"0.5")},
        {0.5, VT_BSTR, Com::Variant(u"0.5")},
        {2.5, VT_I4, Com::Variant(2)},
        {8.25, VT_CY, Typed(VT_CY, u"8.25")},
        {text, VT_I4, Com::Variant(12)},
        {text, VT_BSTR, Com::Variant(u"12")},
        {u"0.5"s, VT_R8, Com::Variant(0.5)},
        {HexNumber{0x80000005}, VT_I4, Com::Variant(-2147483643)},
        {HexNumber{0xFF}, VT_BSTR, Com::Variant(u"255")},
    };
    for (const auto& c : cases) {
        Com::Variant value;
        ASSERT_EQ(Read(c.Stored, c.Wanted, value), S_OK) << c.Wanted;
        EXPECT_EQ(value.Get().vt, c.Wanted);
        EXPECT_EQ(::VarCmp(&value.Get(), const_cast<VARIANT*>(&c.Expected.Get()), 0x409, 0),
                  VARCMP_EQ)
            << c.Wanted;
    }
    EXPECT_TRUE(errors_.empty());
}

TEST_F(PropertyBagTest, GivesColoursAsUnsignedNumbersToo) {
    for (const VARTYPE type : {VT_UI4, VT_UINT}) {
        Com::Variant value;
        ASSERT_EQ(Read(HexNumber{0x80000005}, type, value), S_OK);
        EXPECT_EQ(value.Get().vt, type);
        EXPECT_EQ(value.Get().ulVal, 0x80000005u);
    }
}

TEST_F(PropertyBagTest, GivesTheNaturalTypeWhenNoneIsAsked) {
    const struct {
        FormValue Stored;
        VARTYPE Type;
    } cases[] = {{true, VT_BOOL}, {1, VT_I4},       {HexNumber{1}, VT_I4},
                 {1.0, VT_R8},    {u"1"s, VT_BSTR}, {FormProperties(), VT_DISPATCH}};
    for (const auto& c : cases) {
        Com::Variant value;
        ASSERT_EQ(Read(c.Stored, VT_EMPTY, value), S_OK);
        EXPECT_EQ(value.Get().vt, c.Type);
    }
}

TEST_F(PropertyBagTest, KeepsEveryCharacterOfAText) {
    const Text text = u"\u6E29\xD800\0\r\n\"x"s;
    Com::Variant value;
    ASSERT_EQ(Read(text, VT_BSTR, value), S_OK);
    EXPECT_EQ(Com::View(value.Get().bstrVal), text);
}

TEST_F(PropertyBagTest, LogsWhatDoesNotConvert) {
    const struct {
        FormValue Stored;
        VARTYPE Wanted;
        HRESULT Result;
    } cases[] = {
        {u"abc"s, VT_I4, DISP_E_TYPEMISMATCH},     {u""s, VT_BOOL, DISP_E_TYPEMISMATCH},
        {70000, VT_I2, DISP_E_OVERFLOW},           {1e300, VT_I4, DISP_E_OVERFLOW},
        {1, VT_UNKNOWN, DISP_E_TYPEMISMATCH},      {1, VT_DISPATCH, DISP_E_TYPEMISMATCH},
        {u"x"s, VT_DISPATCH, DISP_E_TYPEMISMATCH},
    };
    for (const auto& c : cases) {
        errors_.clear();
        Com::Variant value;
        EXPECT_EQ(Read(c.Stored, c.Wanted, value), c.Result) << c.Wanted;
        EXPECT_EQ(value.Get().vt, VT_EMPTY);
        ASSERT_EQ(errors_.size(), 1u) << c.Wanted;
        EXPECT_EQ(errors_[0].rfind(u"Key: the value cannot be read: 0x", 0), 0u);
    }
}

TEST_F(PropertyBagTest, NeverTakesAFailureForAnAbsentKey) {
    for (const VARTYPE wanted : {VARTYPE{VT_ARRAY | VT_I4}, VARTYPE{VT_BYREF | VT_I4}, VARTYPE{77},
                                 VARTYPE{VT_RECORD}, VARTYPE{0xFFFF}}) {
        Com::Variant value;
        const HRESULT result = Read(FormValue(1), wanted, value);
        EXPECT_TRUE(FAILED(result)) << wanted;
        EXPECT_NE(result, E_INVALIDARG) << wanted;
        EXPECT_EQ(value.Get().vt, VT_EMPTY);
    }
}

TEST_F(PropertyBagTest, DoesNotReleaseWhatTheCallerLeftInTheVariant) {
    VARIANT value;
    value.vt = VT_BSTR;
    value.bstrVal = reinterpret_cast<BSTR>(1);
    ASSERT_EQ(Com::MakeObject<PropertyBag>()->Read(L"Key", &value, nullptr), E_INVALIDARG);
    FormProperties properties;
    properties.Set({u"Key", u"x"s});
    value.vt = VT_DISPATCH;
    EXPECT_EQ(Com::MakeObject<PropertyBag>(properties)->Read(L"Key", &value, nullptr),
              DISP_E_TYPEMISMATCH);
}

TEST_F(PropertyBagTest, RefusesNullPointers) {
    Com::Variant value;
    const auto bag = Com::MakeObject<PropertyBag>();
    EXPECT_EQ(bag->Read(nullptr, &value.Get(), nullptr), E_POINTER);
    EXPECT_EQ(bag->Read(L"Key", nullptr, nullptr), E_POINTER);
    EXPECT_EQ(bag->Write(nullptr, &value.Get()), E_POINTER);
    EXPECT_EQ(bag->Write(L"Key", nullptr), E_POINTER);
}

TEST_F(PropertyBagTest, KeepsWhatAControlWrites) {
    LONG number = -5;
    Com::Variant reference;
    reference.Get().vt = VT_BYREF | VT_I4;
    reference.Get().plVal = &number;
    Com::Variant unsignedColor(-2147483643);
    unsignedColor.Get().vt = VT_UI4;
    const struct {
        const wchar_t* Key;
        Com::Variant Written;
        FormValue Stored;
    } cases[] = {
        {L"Key", Com::Variant(true), true},
        {L"Key", Com::Variant(u"a\"b"), u"a\"b"s},
        {L"Key", Com::Variant(-7), -7},
        {L"Key", Typed(VT_I2, u"-7"), -7},
        {L"Key", Typed(VT_UI1, u"200"), 200},
        {L"Key", Typed(VT_I8, u"-2147483648"), std::numeric_limits<std::int32_t>::min()},
        {L"Key", Typed(VT_I8, u"4294967296"), 4294967296.0},
        {L"Key", Typed(VT_UI4, u"4000000000"), 4000000000.0},
        {L"Key", Com::Variant(2.0), 2.0},
        {L"Key", Typed(VT_R4, u"0.5"), 0.5},
        {L"Key", Typed(VT_CY, u"8.25"), 8.25},
        {L"Key", Typed(VT_DECIMAL, u"0.1"), 0.1},
        {L"BackColor", Com::Variant(-2147483643), HexNumber{0x80000005}},
        {L"forecolor", unsignedColor, HexNumber{0x80000005}},
        {L"Key", reference, -5},
    };
    for (const auto& c : cases) {
        FormProperties stored;
        ASSERT_EQ(Write(c.Key, c.Written.Get(), stored), S_OK) << c.Written.Type();
        ASSERT_EQ(stored.Count(), 1u);
        EXPECT_EQ(*stored.begin(), (FormProperty{Com::ToText(c.Key), c.Stored}))
            << c.Written.Type();
    }
    reference.Get().vt = VT_EMPTY;
}

TEST_F(PropertyBagTest, NothingWrittenRemovesTheProperty) {
    FormProperties properties;
    properties.Set({u"Key", 1});
    VARIANT nothing[3] = {};
    nothing[1].vt = VT_NULL;
    nothing[2].vt = VT_DISPATCH;
    for (VARIANT& value : nothing) {
        const auto bag = Com::MakeObject<PropertyBag>(properties);
        EXPECT_EQ(bag->Write(L"KEY", &value), S_OK);
        EXPECT_TRUE(bag->Properties().IsEmpty()) << value.vt;
    }
}

TEST_F(PropertyBagTest, RefusesWhatAFormFileCannotKeep) {
    Com::Variant array;
    array.Get().parray = ::SafeArrayCreateVector(VT_I4, 0, 1);
    array.Get().vt = VT_ARRAY | VT_I4;
    const Com::Variant cases[] = {array, Com::Variant(std::numeric_limits<double>::infinity()),
                                  Com::Variant(std::numeric_limits<double>::quiet_NaN()),
                                  Com::Variant(static_cast<IDispatch*>(nullptr))};
    for (std::size_t i = 0; i < 3; ++i) {
        FormProperties stored;
        EXPECT_EQ(Write(L"Key", cases[i].Get(), stored), DISP_E_TYPEMISMATCH) << i;
        EXPECT_TRUE(stored.IsEmpty());
    }
    Com::Variant object;
    object.Get().vt = VT_UNKNOWN;
    object.Get().punkVal = log_.Get();
    log_->AddRef();
    FormProperties stored;
    EXPECT_EQ(Write(L"Key", object.Get(), stored), DISP_E_TYPEMISMATCH);
}

TEST_F(PropertyBagTest, AFontGoesIntoABlockAndComesBack) {
    FormProperties block;
    block.Set({u"Name", u"Tahoma"s});
    block.Set({u"Size", 12.75});
    block.Set({u"Weight", 700});
    block.Set({u"Charset", 0});
    block.Set({u"Italic", true});
    block.Set({u"Underline", false});
    block.Set({u"Strikethrough", true});
    Com::Variant font;
    ASSERT_EQ(Read(block, VT_UNKNOWN, font), S_OK);
    ASSERT_EQ(font.Get().vt, VT_UNKNOWN);
    FormProperties stored;
    ASSERT_EQ(Write(L"Font", font.Get(), stored), S_OK);
    ASSERT_EQ(stored.Count(), 1u);
    FormProperties read = std::get<FormProperties>(stored.begin()->Value);
    // A system without Tahoma tells the name of the face it uses.
    EXPECT_TRUE(read.Remove(u"Name"));
    block.Remove(u"Name");
    EXPECT_EQ(read, block);
}

TEST_F(PropertyBagTest, ADamagedFontBlockIsAnUnreadableValue) {
    FormProperties block;
    block.Set({u"Size", u"large"s});
    Com::Variant font;
    EXPECT_EQ(Read(block, VT_DISPATCH, font), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(errors_.size(), 1u);
    FormProperties nested;
    nested.Set({u"Name", block});
    ASSERT_EQ(Read(nested, VT_DISPATCH, font), S_OK);
}

} // namespace
