// SPDX-License-Identifier: MIT
// Tests of what is said of definition texts that are no system.
#include "system/DefinitionTexts.h"
#include "tests/core/CoreTest.h"

namespace Quorvane::System {
namespace {

constexpr TextView Inputs = u"X/8/0/A,0,0,2,6;B,2,6,8,8";
constexpr TextView Outputs = u"Y/16/0/P,0;Q,8";
constexpr TextView Rules = u"X>A/Y<P:1";

struct Case {
    const char16_t* Text;
    std::size_t Column;
    const char16_t* Message;
};

/// The text replaces that of its part, and the error must be there.
void ExpectError(DefinitionPart part, const Case& test) {
    SCOPED_TRACE(Narrow(test.Message));
    DefinitionTexts texts{Text(Inputs), Text(Outputs), Text(Rules)};
    (part == DefinitionPart::Inputs    ? texts.Inputs
     : part == DefinitionPart::Outputs ? texts.Outputs
                                       : texts.Rules) = test.Text;
    try {
        FromPlainTexts(texts);
        FAIL() << "no error";
    } catch (const DefinitionError& error) {
        EXPECT_EQ(error.Part, part);
        EXPECT_EQ(error.Column, test.Column);
        EXPECT_EQ(error.Message, test.Message);
    }
}

TEST(DefinitionError, SaysWhatIsWrongWithInputs) {
    const Case cases[] = {
        {u"X", 2, u"expected \"/\" and the variable's upper bound"},
        {u"X/8", 4, u"expected \"/\" and the variable's lower bound"},
        {u"X/8/0", 6, u"expected \"/\" and the variable's terms"},
        {u"X/8/0/A,1,2", 12, u"expected \",\" and one of the four points of the term"},
        {u"X/8/0/A,0,0,2,6;", 17, u"expected the name of a term"},
        {u"X/8/0/A,0,0,2,6|", 17, u"expected the name of a variable"},
        {u"X/8/0/A,0,0,2,six", 15, u"expected a number"},
        {u"X/8,5/0/A,0,0,2,6", 3, u"expected a number"},
        {u"X/8/1E999/A,0,0,2,6", 5, u"the number is too large"},
        {u"X/8/0/A,0,0,2,6;a,0,0,2,6", 17, u"the variable has a term \"a\" already"},
        {u"X/8/0/A,0,0,2,6|x/8/0/A,0,0,2,6", 17, u"there is a variable \"x\" already"},
    };
    for (const Case& test : cases) {
        ExpectError(DefinitionPart::Inputs, test);
    }
}

TEST(DefinitionError, SaysWhatIsWrongWithOutputs) {
    const Case cases[] = {
        {u"Y/16/0/P,0;Q", 13, u"expected \",\" and the term's position"},
        {u"Y/16/0/P,0;p,8", 12, u"the variable has a term \"p\" already"},
        {u"Y/16/0/P,0|Z/1E308/1E308/S,0", 12, u"the middle of the universe is too large"},
    };
    for (const Case& test : cases) {
        ExpectError(DefinitionPart::Outputs, test);
    }
}

TEST(DefinitionError, SaysWhatIsWrongWithRules) {
    const Case cases[] = {
        {u"X>A/Y<P", 8, u"expected \":\" and a weight"},
        {u"X>A:1", 4, u"expected \"/\" and what follows"},
        {u"X>A/Y<P:", 9, u"expected a number"},
        {u"X>A/Y<P:1,5", 9, u"expected a number"},
        {u"X/Y<P:1", 2, u"expected \">\" and the name of a term"},
        {u"X>A/Y>P:1", 8, u"expected \"<\" and the name of a term"},
        {u"Q>A/Y<P:1", 1, u"expected the name of an input, not \"Q\""},
        {u"X>A;/Y<P:1", 5, u"expected the name of an input"},
        {u"X>A/Q<P:1", 5, u"expected the name of an output, not \"Q\""},
        {u"X>C/Y<P:1", 3, u"\"X\" has no term \"C\""},
        {u"X>[none]/Y<P:1", 3, u"\"X\" has no term \"[none]\""},
        {u"X>A/Y<R:1", 7, u"\"Y\" has no term \"R\""},
        {u"X>A;X>B/Y<P:1", 5, u"the rule names \"X\" twice"},
        {u"X>A/Y<P;Y<Q:1", 9, u"the rule names \"Y\" twice"},
        {u"X>A/Y<P:1|X>A/Y<p:1", 11, u"the rule is there already"},
        {u"X>A/Y<P:1|", 11, u"expected a rule"},
    };
    for (const Case& test : cases) {
        ExpectError(DefinitionPart::Rules, test);
    }
}

TEST(DefinitionError, SaysWhereAStoredTextIsNone) {
    try {
        FromStoredTexts({u"85F2", u"", u"85x2"});
        FAIL() << "no error";
    } catch (const DefinitionError& error) {
        EXPECT_EQ(error.Part, DefinitionPart::Rules);
        EXPECT_EQ(error.Column, 3U);
        EXPECT_EQ(error.Message, u"expected a hexadecimal digit of a stored text");
    }
}

} // namespace
} // namespace Quorvane::System
