// SPDX-License-Identifier: MIT
// The differences between the input and the output side.
#include "editor/checks/Side.h"

#include "editor/checks/DesignTime.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {
namespace {

TrapezoidPoints SpreadTrapezoid(double lower, double upper) {
    const double range = upper - lower;
    return {range * 1 / 5 + lower, range * 2 / 5 + lower, range * 3 / 5 + lower,
            range * 4 / 5 + lower};
}

TrapezoidPoints MiddleSingleton(double lower, double upper) {
    const double middle = (upper + lower) / 2;
    return {middle, middle, middle, middle};
}

constexpr PointTraits InputPoints[] = {
    {u"Point:1", u"MF_P1"}, {u"Point:2", u"MF_P2"}, {u"Point:3", u"MF_P3"}, {u"Point:4", u"MF_P4"}};
constexpr PointTraits OutputPoints[] = {{u"Point", u"MF_P"}};

constexpr SideTraits InputTraits{.Variables = &Definition::ProcessState::InputVariables,
                                 .TermMark = u'>',
                                 .NewTermPoints = SpreadTrapezoid,
                                 .UpdateExtent = DesignTime::UpdateInputExtent,
                                 .ChecksBoundPair = true,
                                 .RootKey = u"[Input]",
                                 .RootTextId = TextIds::Input,
                                 .RootImage = u"Inputs",
                                 .VariableImage = u"Input",
                                 .NewNameStem = u"Input_",
                                 .Points = InputPoints,
                                 .LabelPrefix = u"lblIn",
                                 .ListPrefix = u"lstIn",
                                 .FirstHeadingId = TextIds::If,
                                 .FurtherHeadingId = TextIds::And};

constexpr SideTraits OutputTraits{.Variables = &Definition::ProcessState::OutputVariables,
                                  .TermMark = u'<',
                                  .NewTermPoints = MiddleSingleton,
                                  .UpdateExtent = DesignTime::UpdateOutputExtent,
                                  .ChecksBoundPair = false,
                                  .RootKey = u"[Output]",
                                  .RootTextId = TextIds::Output,
                                  .RootImage = u"Outputs",
                                  .VariableImage = u"Output",
                                  .NewNameStem = u"Output_",
                                  .Points = OutputPoints,
                                  .LabelPrefix = u"lblOut",
                                  .ListPrefix = u"lstOut",
                                  .FirstHeadingId = TextIds::Then,
                                  .FurtherHeadingId = TextIds::Nothing};

} // namespace

const SideTraits& TraitsOf(Side side) {
    return side == Side::Input ? InputTraits : OutputTraits;
}

VariableDictionary& VariablesOf(Side side) {
    return Definition::Require(Definition::State().*TraitsOf(side).Variables);
}

} // namespace Quorvane::Editor
