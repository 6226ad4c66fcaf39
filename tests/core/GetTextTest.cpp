// SPDX-License-Identifier: MIT
// Tests of the text table: every text in both languages, and the choice of language.
#include "text/GetText.h"

#include <limits>

#include "tests/core/CoreTest.h"

namespace Quorvane {
namespace {

using Main::GetText;

class GetTextTest : public CoreTest {};

struct ExpectedTexts {
    std::int32_t Id;
    TextView English;
    TextView Chinese;
};

// The misspelt and the padded texts are as they must be.
constexpr ExpectedTexts Expected[] = {
    {0, u"Fuzzy Logic", u"模糊逻辑"},
    {1, u"Fuzzy Inference", u"模糊推理"},
    {2, u"Fuzzy Control", u"模糊控制"},
    {3, u"Crisp Set", u"明晰集合"},
    {4, u"Fuzzy Set", u"模糊集合"},
    {5, u"Membership Function", u"隶属函数"},
    {6, u"Trapezoid", u"梯形"},
    {7, u"Triangle", u"三角形"},
    {8, u"Singleton", u"单点"},
    {9, u"Degree of Membership", u"隶属度"},
    {10, u"Linguistic Rule", u"语言规则"},
    {11, u"Linguistic Statement", u"语句"},
    {12, u"Linguistic Variable", u"语言变量"},
    {13, u"Linguistic Term", u"语言项"},
    {14, u"Rule Base", u"规则库"},
    {15, u"Weight", u"权值"},
    {16, u"Input", u"输入"},
    {17, u"No.", u"编号"},
    {18, u"IF  ", u"如果 "},
    {19, u"AND  ", u"而且 "},
    {20, u"Fuzzification", u"模糊化"},
    {21, u"Condition", u"条件"},
    {22, u"Antecedent", u"前件"},
    {23, u"Aggregation", u"聚合"},
    {24, u"Activation", u"激发"},
    {25, u"THEN  ", u"那么 "},
    {26, u"Conclusion", u"结论"},
    {27, u"Consequent", u"后件"},
    {28, u"Accumulation", u"堆垒"},
    {29, u"Defuzzification", u"去模糊化"},
    {30, u"Center of Gravity", u"重心"},
    {31, u"Weighted Average", u"加权平均"},
    {32, u"Output", u"输出"},
    {33, u"Value", u"值"},
    {34, u"  IS", u" 为"},
    {35, u"Quorvane Controller", u"Quorvane 控制器"},
    {36, u"Quorvane Inference System", u"Quorvane 推理系统"},
    {37, u"\\Help\\Quorvane_EN.chm", u"\\Help\\Quorvane_CN.chm"},
    {38,
     u"The Fuzzy Inference System ActiveX Control - Version 1.0.5\r"
     u"Copyright (C) 2026 Quorvane",
     u"模糊推理系统 ActiveX 控件 － 版本 1.0.5\r"
     u"版权所有 (C) 2026 Quorvane"},
    {51, u"OK", u"确定"},
    {52, u"Add", u"添加"},
    {53, u"Modify", u"修改"},
    {54, u"Delete", u"删除"},
    {55, u"Add Variable", u"添加变量"},
    {56, u"Modify Variable", u"修改变量"},
    {57, u"Delete Variable", u"删除变量"},
    {58, u"Add Term", u"添加项"},
    {59, u"Modify Term", u"修改项"},
    {60, u"Delete Term", u"删除项"},
    {61, u"Modify Value", u"修改数值"},
    {62, u"Rule Editor...", u"规则编辑器..."},
    {63, u"Add Rule", u"添加规则"},
    {64, u"Modify Rule", u"修改规则"},
    {65, u"Delete Rule", u"删除规则"},
    {66, u"Close", u"关闭"},
    {67, u"i ", u"i "},
    {68, u"?", u"?"},
    {69, u"The rule base will be emptied!\r\nDo you want to preceed?",
     u"规则库将被清空！\r\n继续？"},
    {70, u"The identifier duplicates!", u"标识符重复！"},
    {71, u"Only Alphanumeric characters and _ are allowed!", u"只能使用字符、数字和下划线_！"},
    {72, u"Should be a number!", u"应该为一数值！"},
    {73, u"Enter a number greater than ?!", u"输入一个大于?的数！"},
    {74, u"Enter a number less than ?!", u"输入一个小于?的数！"},
    {75, u"The maximum length of the identiier is ?!", u"标识符的最大长度为?"},
    {76, u"The identiier cannot begin with a digit!", u"标识符不能以数字起始！"},
    {77, u"The upper bound and lower bound cannot be equal!", u"上限不能与下限相等！"},
    {78, u"The rule base cannot be empty!", u"规则库不能为空！"},
    {79, u"Invalid linguistic input signal.", u"无效的语言输入信号。"},
    {80, u"Invalid linguistic input variable.", u"无效的语言输入变量。"},
    {81, u"Invalid linguistict output variable.", u"无效的语言输出变量。"},
    {82, u"Invalid linguistict rule.", u"无效的语言规则。"},
    {83, u"Invalid Inference.", u"无效的推理。"},
    {84, u"Invalid Evaluation.", u"无效的检验."},
};

Text InLanguage(std::int32_t languageId, std::int32_t id) {
    Definition::State().LanguageId = languageId;
    return GetText(id);
}

TEST_F(GetTextTest, GivesEveryTextInBothLanguages) {
    EXPECT_EQ(std::size(Expected), 73U);
    for (const ExpectedTexts& expected : Expected) {
        EXPECT_EQ(InLanguage(0, expected.Id), expected.English) << expected.Id;
        EXPECT_EQ(InLanguage(2052, expected.Id), expected.Chinese) << expected.Id;
    }
}

TEST_F(GetTextTest, GivesTheEmptyTextForEveryOtherId) {
    std::vector<std::int32_t> ids = {85,
                                     86,
                                     1000,
                                     65536,
                                     -1,
                                     -84,
                                     std::numeric_limits<std::int32_t>::min(),
                                     std::numeric_limits<std::int32_t>::max()};
    for (std::int32_t id = 39; id <= 50; ++id) {
        ids.push_back(id);
    }
    for (const std::int32_t id : ids) {
        EXPECT_EQ(InLanguage(0, id), u"") << id;
        EXPECT_EQ(InLanguage(2052, id), u"") << id;
    }
}

TEST_F(GetTextTest, SpeaksChineseForOneLanguageIdOnly) {
    EXPECT_EQ(GetText(0), u"Fuzzy Logic") << "a new process speaks English";
    EXPECT_EQ(InLanguage(2052, 0), u"模糊逻辑");
    // English, other Chinese, a sort order of 2052, and what narrowing would make 2052.
    for (const std::int32_t languageId :
         {0, 1033, 1031, 1028, 3076, 4100, 5124, 4, 0x00010804, 0x08040000, -2052,
          std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(InLanguage(languageId, 0), u"Fuzzy Logic") << languageId;
    }
}

TEST_F(GetTextTest, PadsTheWordsOfARule) {
    EXPECT_EQ(InLanguage(0, 18).size(), 4U);
    EXPECT_EQ(InLanguage(0, 18), u"IF  ");
    EXPECT_EQ(InLanguage(2052, 18), u"如果 ");
    EXPECT_EQ(InLanguage(0, 34), u"  IS");
    EXPECT_EQ(InLanguage(2052, 34), u" 为");
}

TEST_F(GetTextTest, NamesHelpFilesThatDifferInTheLanguageOnly) {
    Text english = InLanguage(0, 37);
    const auto suffix = english.find(u"EN");
    ASSERT_NE(suffix, Text::npos);
    EXPECT_EQ(english.replace(suffix, 2, u"CN"), InLanguage(2052, 37));
}

TEST_F(GetTextTest, FollowsAChangeOfLanguageAtOnce) {
    const Text before = InLanguage(0, 16);
    const Text after = InLanguage(2052, 16);
    EXPECT_EQ(before, u"Input");
    EXPECT_EQ(after, u"输入");
}

TEST_F(GetTextTest, FillsInTheLimitThatWasViolated) {
    struct Case {
        std::int32_t LanguageId;
        std::int32_t Id;
        const char16_t* Limit;
        const char16_t* Message;
    };
    const Case cases[] = {
        {0, 73, u"-1.5", u"Enter a number greater than -1.5!"},
        {0, 74, u"1E-05", u"Enter a number less than 1E-05!"},
        {0, 75, u"10", u"The maximum length of the identiier is 10!"},
        {2052, 73, u"0", u"输入一个大于0的数！"},
        {2052, 75, u"10", u"标识符的最大长度为10"},
        {0, 68, u"?", u"?"},
        {0, 72, u"10", u"Should be a number!"},
        {0, 73, u"", u"Enter a number greater than !"},
        {0, 85, u"10", u""},
    };
    for (const Case& test : cases) {
        Definition::State().LanguageId = test.LanguageId;
        EXPECT_EQ(GetText(test.Id, test.Limit), test.Message) << test.Id;
    }
}

} // namespace
} // namespace Quorvane
