// SPDX-License-Identifier: MIT
// Designing a system from nothing by mouse and keyboard: how hard a pump works for a tank.
#include "tests/form/driving/TankDesign.h"

#include "tests/form/driving/Hands.h"

namespace Quorvane::Driving {

namespace {

constexpr int In = Id::TreInput;
constexpr int Out = Id::TreOutput;

/// The names of the variables that the page offers for new ones.
const std::wstring NewInput = L"Input_1";
const std::wstring NewOutput = L"Output_1";
const std::wstring NewTerm = L"MF_1";

void RemoveVariables(const PageHands& page, int tree, const std::wstring& newVariable) {
    HWND const window = page.Tree(tree);
    for (const std::wstring& name : ChildTexts(window, TreeItem(window, {}))) {
        if (name != newVariable) {
            page.Delete(tree, {name});
        }
    }
}

/// Edits the points of a term, in an order in which none passes its neighbour on the way.
struct PointEdit {
    int Index;
    const wchar_t* Value;
};

void EditPoints(const PageHands& page, const Path& term, std::initializer_list<PointEdit> edits) {
    for (const PointEdit& edit : edits) {
        page.EditChild(In, term, edit.Index, edit.Value);
    }
}

/// A new input, from -1..1 with a term -0.6, -0.2, 0.2, 0.6, becomes 0..upper with a term that
/// falls.
void DesignInput(const PageHands& page, const std::wstring& name, const std::wstring& upper,
                 const std::wstring& first, const PointEdit& firstFrom, const PointEdit& firstTo) {
    page.Edit(In, {NewInput}, name);
    page.Edit(In, {name, L"1"}, upper);
    page.Edit(In, {name, NewTerm}, first);
    EditPoints(page, {name, first}, {firstTo, firstFrom, {1, L"0"}, {0, L"0"}});
    page.Edit(In, {name, L"-1"}, L"0");
}

void DesignInputs(const PageHands& page, const Look& look) {
    page.Add(In, {});
    RemoveVariables(page, In, NewInput);
    DesignInput(page, L"Level", L"100", L"Low", {2, L"20"}, {3, L"80"});
    // The term that a variable gets next lies at 20, 40, 60 and 80.
    page.Add(In, {L"Level"});
    page.Edit(In, {L"Level", NewTerm}, L"High");
    EditPoints(page, {L"Level", L"High"}, {{3, L"100"}, {2, L"100"}, {1, L"80"}});
    look("tank-level", page.Frame());

    page.Add(In, {});
    DesignInput(page, L"Inflow", L"10", L"Small", {2, L"0"}, {3, L"10"});
    page.Add(In, {L"Inflow"});
    page.Edit(In, {L"Inflow", NewTerm}, L"Large");
    EditPoints(page, {L"Inflow", L"Large"}, {{3, L"10"}, {2, L"10"}, {1, L"10"}, {0, L"0"}});
}

void DesignOutput(const PageHands& page, const Look& look) {
    page.Add(Out, {});
    RemoveVariables(page, Out, NewOutput);
    page.Edit(Out, {NewOutput}, L"Pump");
    page.Edit(Out, {L"Pump", L"1"}, L"1000");
    page.Edit(Out, {L"Pump", NewTerm}, L"Off");
    page.Edit(Out, {L"Pump", L"-1"}, L"0");
    // A new term stands in the middle, at 500.
    page.Add(Out, {L"Pump"});
    page.Edit(Out, {L"Pump", NewTerm}, L"Half");
    page.Add(Out, {L"Pump"});
    page.Edit(Out, {L"Pump", NewTerm}, L"Full");
    page.EditChild(Out, {L"Pump", L"Full"}, 0, L"1000");
    look("tank-pump", page.Frame());
}

void DesignRules(const FormProgram& program, const PageHands& page, const Look& look) {
    const RuleEditorHands editor(program, page.OpenRuleEditor());
    struct Rule {
        const wchar_t* Level;
        const wchar_t* Inflow;
        const wchar_t* Pump;
        const wchar_t* Weight;
    };
    const Rule rules[] = {{L"Low", L"Small", L"Off", L"1"},
                          {L"Low", L"Large", L"Half", L"1"},
                          {L"High", L"Small", L"Half", L"1"},
                          {L"High", L"Large", L"Full", L"0.5"}};
    int count = 0;
    for (const Rule& rule : rules) {
        editor.ChooseInput(0, rule.Level);
        editor.ChooseInput(1, rule.Inflow);
        editor.ChooseOutput(0, rule.Pump);
        editor.Add(rule.Weight, ++count);
    }
    look("tank-rules", editor.Window());
    editor.Close();
}

} // namespace

void DesignTank(const FormProgram& program, const PageHands& page, const Look& look) {
    DesignInputs(page, look);
    DesignOutput(page, look);
    DesignRules(program, page, look);
}

} // namespace Quorvane::Driving
