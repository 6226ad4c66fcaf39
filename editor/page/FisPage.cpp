// SPDX-License-Identifier: MIT
// The events of the property page.
#include "editor/page/FisPage.h"

#include <utility>

#include "editor/page/DrawVariableGraph.h"
#include "editor/page/LabelEdits.h"
#include "editor/page/VariableEdits.h"
#include "editor/page/VariableNodes.h"
#include "model/BuildDefinition.h"
#include "model/ParseDefinition.h"
#include "shared/NumberText.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {
namespace {

/// The text ids of the captions of the buttons for a kind of node.
struct CaptionIds {
    std::int32_t Add;
    std::int32_t Modify;
    std::int32_t Delete;
};

CaptionIds CaptionIdsOf(NodeTag tag) {
    switch (tag) {
    case NodeTag::Root:
        return {TextIds::AddVariable, TextIds::Modify, TextIds::Delete};
    case NodeTag::Name:
        return {TextIds::AddTerm, TextIds::ModifyVariable, TextIds::DeleteVariable};
    case NodeTag::MF:
        return {TextIds::Add, TextIds::ModifyTerm, TextIds::DeleteTerm};
    case NodeTag::UBound:
    case NodeTag::LBound:
    case NodeTag::Point:
        break;
    }
    return {TextIds::Add, TextIds::ModifyValue, TextIds::Delete};
}

bool CanAdd(Side side, TreeNode& node) {
    switch (node.Tag) {
    case NodeTag::Root:
        return VariablesOf(side).Count() < MostVariables;
    case NodeTag::Name:
        return VariablesOf(side).At(node.Key).MF.Count() < MostTerms;
    default:
        return false;
    }
}

bool CanDelete(Side side, TreeNode& node) {
    switch (node.Tag) {
    case NodeTag::Name:
        return VariablesOf(side).Count() > 1;
    case NodeTag::MF:
        return VariablesOf(side).At(VariableNodeOf(node).Key).MF.Count() > 1;
    default:
        return false;
    }
}

} // namespace

FisPage::FisPage(Prompt& prompt, TreeControl& treInput, TreeControl& treOutput)
    : prompt_(prompt), input_{treInput, nullptr}, output_{treOutput, nullptr} {
    buttons_.Add.Caption = Main::GetText(TextIds::Add);
    buttons_.Modify.Caption = Main::GetText(TextIds::Modify);
    buttons_.Delete.Caption = Main::GetText(TextIds::Delete);
    buttons_.Rule.Caption = Main::GetText(TextIds::RuleEditor);
}

void FisPage::SelectionChanged(bool readOnly) {
    readOnly_ = true;
    changed_ = false;
    // Parsing would reset the values of a running control, whose model is up to date anyway.
    if (!readOnly || !Definition::State().RuleBase) {
        try {
            Main::ParseDefinition();
        } catch (const FisError&) {
            FillTrees();
            throw;
        }
    }
    readOnly_ = readOnly;
    FillTrees();
}

void FisPage::FillTrees() {
    FillTree(Side::Input);
    FillTree(Side::Output);
    DisableButtons();
    buttons_.Rule.Enabled = !readOnly_;
    waitsForClick_ = true;
}

void FisPage::FillTree(Side side) {
    auto root = MakeTree(side);
    edited_ = nullptr;
    Tree& filled = tree(side);
    // Both roots live on while the control goes from one to the other, which can fail on the way.
    const auto former = std::exchange(filled.Root, std::move(root));
    filled.Selected = filled.Root.get();
    filled.Control.Show(*filled.Root);
    NodeClick(side, *filled.Root);
}

void FisPage::DisableButtons() {
    buttons_.Add.Enabled = false;
    buttons_.Modify.Enabled = false;
    buttons_.Delete.Enabled = false;
}

bool FisPage::ApplyChanges(SelectedControl& control) {
    if (readOnly_) {
        return false;
    }
    changed_ = true;
    if (Definition::Require(Definition::State().RuleBase).Empty()) {
        ShowRefusal(prompt_, Main::GetText(TextIds::RuleBaseEmpty));
        return false;
    }
    Main::BuildDefinition();
    // Copies: an assignment changes the state that holds the texts.
    const Definition::ProcessState& state = Definition::State();
    const Text inputs = state.InputsText;
    const Text outputs = state.OutputsText;
    const Text rules = state.RulesText;
    control.Put(u"Inputs", inputs);
    control.Put(u"Outputs", outputs);
    control.Put(u"Rules", rules);
    changed_ = false;
    return true;
}

void FisPage::NodeClick(Side side, TreeNode& node) {
    waitsForClick_ = false;
    currentTree_ = side;
    tree(side).Selected = &node;
    DisableButtons();
    const CaptionIds captions = CaptionIdsOf(node.Tag);
    buttons_.Add.Caption = Main::GetText(captions.Add);
    buttons_.Modify.Caption = Main::GetText(captions.Modify);
    buttons_.Delete.Caption = Main::GetText(captions.Delete);
    ShowGraphOf(side, node);
    if (!readOnly_) {
        buttons_.Add.Enabled = CanAdd(side, node);
        buttons_.Modify.Enabled = node.Tag != NodeTag::Root;
        buttons_.Delete.Enabled = CanDelete(side, node);
    }
}

void FisPage::EnterTree(Side side) {
    TreeNode* const selected = tree(side).Selected;
    if (selected && (waitsForClick_ || currentTree_ != side)) {
        NodeClick(side, *selected);
    }
}

bool FisPage::BeforeLabelEdit(Side, const TreeNode& node) {
    if (readOnly_ || node.Tag == NodeTag::Root) {
        return false;
    }
    edited_ = &node;
    return true;
}

bool FisPage::AfterLabelEdit(Side side, TreeNode& node, TextView label) {
    // Trees are known to report the end of an edit twice.
    if (std::exchange(edited_, nullptr) != &node) {
        return false;
    }
    const Text former = node.Caption;
    if (label == former) {
        return true;
    }
    if (!ApplyLabelEdit(side, node, label, prompt_)) {
        return false;
    }
    tree(side).Control.UpdateCaption(node);
    ShowGraphOf(side, node);
    changed_ = changed_ || node.Caption != former;
    return true;
}

Text FisPage::TipOf(Side side, TreeNode& node) const {
    const auto range = readOnly_ ? std::nullopt : AllowedRange(side, node);
    if (!range) {
        return {};
    }
    const auto lower = range->Lower ? UserNumberText(*range->Lower) + u' ' : Text();
    const auto upper = range->Upper ? u' ' + UserNumberText(*range->Upper) : Text();
    return lower + u"..." + upper;
}

void FisPage::Add() {
    if (!buttons_.Add.Enabled) {
        return;
    }
    if (tree(currentTree_).Selected->Tag == NodeTag::Root) {
        AddVariable();
    } else {
        AddTerm();
    }
}

void FisPage::AddVariable() {
    if (!ConfirmEmptyRuleBase(prompt_) || !buttons_.Add.Enabled) {
        return;
    }
    TreeNode& root = *tree(currentTree_).Root;
    ShowNewNode(AddVariableNode(root, currentTree_, NewVariable(currentTree_)));
}

void FisPage::AddTerm() {
    TreeNode& variableNode = *tree(currentTree_).Selected;
    LinguisticVariable& variable = VariablesOf(currentTree_).At(variableNode.Key);
    ShowNewNode(AddTermNode(variableNode, currentTree_, NewTerm(currentTree_, variable)));
}

void FisPage::ShowNewNode(TreeNode& node) {
    changed_ = true;
    node.Expanded = true;
    TreeControl& control = tree(currentTree_).Control;
    control.Insert(node);
    control.Select(node);
    NodeClick(currentTree_, node);
}

void FisPage::Modify() {
    if (buttons_.Modify.Enabled) {
        const Tree& current = tree(currentTree_);
        current.Control.EditLabel(*current.Selected);
    }
}

void FisPage::Delete() {
    if (!buttons_.Delete.Enabled) {
        return;
    }
    if (tree(currentTree_).Selected->Tag == NodeTag::Name) {
        // The frame can load the page anew while the question is open; then there is no node left.
        if (!ConfirmEmptyRuleBase(prompt_) || !buttons_.Delete.Enabled) {
            return;
        }
        DeleteVariable(currentTree_, tree(currentTree_).Selected->Key);
    } else {
        const TreeNode& node = *tree(currentTree_).Selected;
        DeleteTerm(currentTree_, node.Parent->Key, LastPart(node));
    }
    RemoveSelected();
}

void FisPage::RemoveSelected() {
    changed_ = true;
    const Tree& current = tree(currentTree_);
    TreeNode& removed = *current.Selected;
    TreeNode& next = NeighbourOf(removed);
    current.Control.Select(next);
    current.Control.Remove(removed);
    RemoveNode(removed);
    NodeClick(currentTree_, next);
}

void FisPage::ShowGraphOf(Side side, TreeNode& node) {
    if (node.Tag == NodeTag::Root) {
        graph_.reset();
    } else {
        graph_ = Graph{side, VariableNodeOf(node).Key};
    }
}

void FisPage::DrawGraph(GraphSurface& surface) const {
    if (graph_) {
        const auto& variables = Definition::State().*TraitsOf(graph_->Of).Variables;
        if (variables && variables->Exists(graph_->Variable)) {
            DrawVariableGraph(surface, graph_->Of, graph_->Variable);
            return;
        }
    }
    surface.Clear();
}

} // namespace Quorvane::Editor
