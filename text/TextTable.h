// SPDX-License-Identifier: MIT
// The bilingual text table: id, English, Simplified Chinese.
#pragma once

#include <cstdint>

#include "shared/Text.h"

namespace Quorvane::Main {

/// One text in both languages. A "?" in a message stands for the limit that was violated.
struct TextRow {
    std::int32_t Id;
    TextView English;
    TextView Chinese;
};

// The spellings "identiier", "linguistict" and "preceed" and the trailing blanks are part of the
// texts: hosts and their users know them so.
inline constexpr TextRow TextTable[] = {
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

} // namespace Quorvane::Main
