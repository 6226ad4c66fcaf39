// SPDX-License-Identifier: MIT
// The type library in the built control, compared with the published interface.
#include <windows.h>

#include <oleauto.h>
#include <olectl.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "com/ComPtr.h"
#include "com/Scoped.h"
#include "idl/QuorvaneAxEditor.h"
#include "tests/com/support/ControlModule.h"

namespace Quorvane {
namespace {

/// A type as it reads in a declaration, qualified with its library where that is another one.
std::u16string NameOf(ITypeInfo& info, const TYPEDESC& type) {
    switch (type.vt) {
    case VT_BSTR:
        return u"String";
    case VT_BOOL:
        return u"Boolean";
    case VT_I4:
        return u"Long";
    case VT_VOID:
        return u"nothing";
    case VT_PTR:
        return NameOf(info, *type.lptdesc) + u"*";
    case VT_USERDEFINED:
        break;
    default:
        return u"type " + Widen(std::to_string(type.vt));
    }
    Com::ComPtr<ITypeInfo> named;
    EXPECT_EQ(info.GetRefTypeInfo(type.hreftype, named.Put()), S_OK);
    Com::ComPtr<ITypeLib> library;
    UINT index = 0;
    EXPECT_EQ(named->GetContainingTypeLib(library.Put(), &index), S_OK);
    Com::Bstr name;
    Com::Bstr libraryName;
    EXPECT_EQ(named->GetDocumentation(MEMBERID_NIL, name.Put(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(library->GetDocumentation(-1, libraryName.Put(), nullptr, nullptr, nullptr), S_OK);
    return Text(libraryName.Characters()) + u"." + Text(name.Characters());
}

struct Parameter {
    Text Name;
    Text Type;
    WORD Flags;
    bool operator==(const Parameter&) const = default;
};

/// One function of an interface.
struct Member {
    Text Name;
    INVOKEKIND Kind;
    DISPID Id;
    WORD Flags;
    Text Returns;
    std::vector<Parameter> Parameters;
    bool operator==(const Member&) const = default;
};

void PrintTo(const Member& member, std::ostream* out) {
    const auto narrow = [](TextView text) { return std::string(text.begin(), text.end()); };
    *out << narrow(member.Name) << " kind " << member.Kind << " id " << std::hex << member.Id
         << " flags " << member.Flags << " returns " << narrow(member.Returns) << " (";
    for (const Parameter& parameter : member.Parameters) {
        *out << narrow(parameter.Name) << ": " << narrow(parameter.Type) << " flags "
             << parameter.Flags << "; ";
    }
    *out << ")" << std::dec;
}

Member Describe(ITypeInfo& info, UINT index) {
    FUNCDESC* function = nullptr;
    EXPECT_EQ(info.GetFuncDesc(index, &function), S_OK);
    std::vector<BSTR> names(static_cast<std::size_t>(function->cParams) + 1);
    UINT count = 0;
    EXPECT_EQ(info.GetNames(function->memid, names.data(), static_cast<UINT>(names.size()), &count),
              S_OK);
    Member member{Text(Com::View(names[0])),
                  function->invkind,
                  function->memid,
                  function->wFuncFlags,
                  NameOf(info, function->elemdescFunc.tdesc),
                  {}};
    for (SHORT parameter = 0; parameter < function->cParams; ++parameter) {
        const ELEMDESC& element = function->lprgelemdescParam[parameter];
        // A property's value is found by its id under the names of another member of that id.
        const bool isNamed = member.Kind == INVOKE_FUNC && static_cast<UINT>(parameter) + 1 < count;
        member.Parameters.push_back(
            {isNamed ? Text(Com::View(names[static_cast<std::size_t>(parameter) + 1])) : Text(),
             NameOf(info, element.tdesc), element.paramdesc.wParamFlags});
    }
    for (BSTR name : names) {
        ::SysFreeString(name);
    }
    info.ReleaseFuncDesc(function);
    return member;
}

/// The interface that this module's own members are described by: for a dual one its vtable side.
Com::ComPtr<ITypeInfo> VtableSide(ITypeInfo& dispatchSide) {
    HREFTYPE reference = 0;
    EXPECT_EQ(dispatchSide.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    Com::ComPtr<ITypeInfo> side;
    EXPECT_EQ(dispatchSide.GetRefTypeInfo(reference, side.Put()), S_OK);
    return side;
}

/// The attributes of a type that the tests ask for.
struct TypeFacts {
    TYPEKIND Kind;
    WORD Flags;
    WORD Functions;
    WORD Implemented;
};

TypeFacts FactsOf(ITypeInfo& info) {
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info.GetTypeAttr(&attributes), S_OK);
    const TypeFacts facts{attributes->typekind, attributes->wTypeFlags, attributes->cFuncs,
                          attributes->cImplTypes};
    info.ReleaseTypeAttr(attributes);
    return facts;
}

class TypeLibrary : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(::LoadTypeLibEx(Com::Wide(ControlModulePath()), REGKIND_NONE, library_.Put()),
                  S_OK);
    }

    Com::ComPtr<ITypeInfo> Type(REFGUID guid) {
        Com::ComPtr<ITypeInfo> info;
        EXPECT_EQ(library_->GetTypeInfoOfGuid(guid, info.Put()), S_OK);
        return info;
    }

    Com::ComPtr<ITypeLib> library_;
};

constexpr WORD In = PARAMFLAG_FIN;
constexpr WORD InOut = PARAMFLAG_FIN | PARAMFLAG_FOUT;
constexpr WORD Result = PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;

Member Getter(const char16_t* name, DISPID id, WORD flags, const Text& type) {
    return {name, INVOKE_PROPERTYGET, id, flags, u"type 25", {{{}, type + u"*", Result}}};
}

Member Setter(const char16_t* name, INVOKEKIND kind, DISPID id, WORD flags, const Text& type) {
    return {name, kind, id, flags, u"type 25", {{{}, type, In}}};
}

Member Method(const char16_t* name, DISPID id, std::vector<Parameter> parameters = {}) {
    return {name, INVOKE_FUNC, id, 0, u"type 25", std::move(parameters)};
}

const Text Colour = u"stdole.OLE_COLOR";
const Text FontObject = u"stdole.Font*";
const Text Dictionary = u"Scripting.IDictionary*";

// The order is the order of the slots of the dual interface; every result is an HRESULT (25).
const Member Published[] = {
    Getter(u"Caption", DISPID_CAPTION, FUNCFLAG_FUIDEFAULT, u"String"),
    Setter(u"Caption", INVOKE_PROPERTYPUT, DISPID_CAPTION, FUNCFLAG_FUIDEFAULT, u"String"),
    Getter(u"Enabled", DISPID_ENABLED, 0, u"Boolean"),
    Setter(u"Enabled", INVOKE_PROPERTYPUT, DISPID_ENABLED, 0, u"Boolean"),
    Getter(u"Font", DISPID_FONT, 0, FontObject),
    Setter(u"Font", INVOKE_PROPERTYPUTREF, DISPID_FONT, 0, FontObject),
    Getter(u"BackColor", DISPID_BACKCOLOR, 0, Colour),
    Setter(u"BackColor", INVOKE_PROPERTYPUT, DISPID_BACKCOLOR, 0, Colour),
    Getter(u"ForeColor", DISPID_FORECOLOR, 0, Colour),
    Setter(u"ForeColor", INVOKE_PROPERTYPUT, DISPID_FORECOLOR, 0, Colour),
    Getter(u"Inputs", 0x68030007, FUNCFLAG_FHIDDEN, u"String"),
    Setter(u"Inputs", INVOKE_PROPERTYPUT, 0x68030007, FUNCFLAG_FHIDDEN, u"String"),
    Getter(u"Outputs", 0x68030006, FUNCFLAG_FHIDDEN, u"String"),
    Setter(u"Outputs", INVOKE_PROPERTYPUT, 0x68030006, FUNCFLAG_FHIDDEN, u"String"),
    Getter(u"Rules", 0x68030005, FUNCFLAG_FHIDDEN, u"String"),
    Setter(u"Rules", INVOKE_PROPERTYPUT, 0x68030005, FUNCFLAG_FHIDDEN, u"String"),
    Setter(u"DataShow", INVOKE_PROPERTYPUT, 0x68030004, 0, u"Boolean"),
    Getter(u"InVals", 0x68030003, 0, Dictionary),
    Setter(u"InVals", INVOKE_PROPERTYPUTREF, 0x68030003, 0, Dictionary),
    Getter(u"OutVals", 0x68030002, 0, Dictionary),
    Setter(u"DefOutVals", INVOKE_PROPERTYPUTREF, 0x68030001, 0, Dictionary),
    Setter(u"ErrOutVals", INVOKE_PROPERTYPUTREF, 0x68030000, 0, Dictionary),
    Method(u"Refresh", 0x6003000B),
    Method(u"ShowAboutBox", DISPID_ABOUTBOX),
    Method(u"Fire", 0x60030012),
    Method(u"BatchData", 0x60030014, {{u"path", u"String*", InOut}, {u"part", u"Long*", InOut}}),
};

TEST_F(TypeLibrary, HasItsNameVersionLocaleAndDescription) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, LIBID_QuorvaneAxEditor);
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->lcid, 0x409u);
    EXPECT_EQ(attributes->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    library_->ReleaseTLibAttr(attributes);
    Com::Bstr name;
    Com::Bstr description;
    ASSERT_EQ(library_->GetDocumentation(-1, name.Put(), description.Put(), nullptr, nullptr),
              S_OK);
    EXPECT_EQ(name.Characters(), u"QuorvaneAxEditor");
    EXPECT_EQ(description.Characters(), u"Fuzzy Logic Inference System Editor");
}

TEST_F(TypeLibrary, PublishesTheMembersOfTheControlInTheirOrder) {
    const auto dispatchSide = Type(__uuidof(_FISControl));
    ASSERT_TRUE(dispatchSide);
    EXPECT_EQ(FactsOf(*dispatchSide).Kind, TKIND_DISPATCH);
    const auto vtable = VtableSide(*dispatchSide);
    ASSERT_TRUE(vtable);
    EXPECT_EQ(FactsOf(*vtable).Kind, TKIND_INTERFACE);
    constexpr WORD flags = TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FNONEXTENSIBLE |
                           TYPEFLAG_FHIDDEN | TYPEFLAG_FDISPATCHABLE;
    EXPECT_EQ(FactsOf(*vtable).Flags, flags);
    ASSERT_EQ(FactsOf(*vtable).Functions, std::size(Published));
    for (UINT index = 0; index < std::size(Published); ++index) {
        EXPECT_EQ(Describe(*vtable, index), Published[index]) << "member " << index;
        FUNCDESC* function = nullptr;
        ASSERT_EQ(vtable->GetFuncDesc(index, &function), S_OK);
        // The seven slots before are those of IUnknown and IDispatch.
        EXPECT_EQ(function->oVft, static_cast<SHORT>((7 + index) * sizeof(void*)));
        EXPECT_EQ(function->callconv, CC_STDCALL);
        vtable->ReleaseFuncDesc(function);
    }
}

TEST_F(TypeLibrary, PublishesTheEvent) {
    const auto events = Type(__uuidof(__FISControl));
    ASSERT_TRUE(events);
    const TypeFacts facts = FactsOf(*events);
    EXPECT_EQ(facts.Kind, TKIND_DISPATCH);
    EXPECT_EQ(facts.Flags & TYPEFLAG_FHIDDEN, TYPEFLAG_FHIDDEN);
    EXPECT_EQ(facts.Flags & TYPEFLAG_FDUAL, 0);
    // A dispinterface lists the seven members of IUnknown and IDispatch only where it inherits
    // them.
    const UINT first = facts.Functions - 1u;
    EXPECT_EQ(Describe(*events, first),
              (Member{u"InferComplate", INVOKE_FUNC, 1, FUNCFLAG_FUIDEFAULT, u"nothing", {}}));
}

TEST_F(TypeLibrary, PublishesTheControlClass) {
    const auto control = Type(__uuidof(::FISControl));
    ASSERT_TRUE(control);
    const TypeFacts facts = FactsOf(*control);
    EXPECT_EQ(facts.Kind, TKIND_COCLASS);
    EXPECT_EQ(facts.Flags, TYPEFLAG_FCANCREATE | TYPEFLAG_FCONTROL);
    ASSERT_EQ(facts.Implemented, 2);
    const struct {
        GUID Guid;
        INT Flags;
    } expected[] = {
        {__uuidof(_FISControl), IMPLTYPEFLAG_FDEFAULT},
        {__uuidof(__FISControl), IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE},
    };
    for (UINT index = 0; index < 2; ++index) {
        HREFTYPE reference = 0;
        INT flags = 0;
        Com::ComPtr<ITypeInfo> implemented;
        ASSERT_EQ(control->GetRefTypeOfImplType(index, &reference), S_OK);
        ASSERT_EQ(control->GetImplTypeFlags(index, &flags), S_OK);
        ASSERT_EQ(control->GetRefTypeInfo(reference, implemented.Put()), S_OK);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(implemented->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->guid, expected[index].Guid);
        EXPECT_EQ(flags, expected[index].Flags);
        implemented->ReleaseTypeAttr(attributes);
    }
}

TEST_F(TypeLibrary, PublishesThePropertyPageClass) {
    const auto page = Type(__uuidof(::FIS_IO));
    ASSERT_TRUE(page);
    EXPECT_EQ(FactsOf(*page).Kind, TKIND_COCLASS);
    const auto side = Type(__uuidof(_FIS_IO));
    ASSERT_TRUE(side);
    EXPECT_EQ(FactsOf(*VtableSide(*side)).Functions, 0);
}

TEST_F(TypeLibrary, HoldsNothingElse) {
    // The interface of the control, its events, its class; the interface and class of the page.
    EXPECT_EQ(library_->GetTypeInfoCount(), 5u);
}

} // namespace
} // namespace Quorvane
