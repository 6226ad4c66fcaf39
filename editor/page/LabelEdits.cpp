// SPDX-License-Identifier: MIT
// What an edited label of a tree does to the model.
#include "editor/page/LabelEdits.h"

#include <algorithm>

#include "editor/checks/DesignTime.h"
#include "editor/page/RuleReferences.h"
#include "shared/NumberText.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {
namespace {

std::size_t PointIndex(Side side, const TreeNode& node) {
    const auto& points = TraitsOf(side).Points;
    return static_cast<std::size_t>(std::ranges::find(points, LastPart(node), &PointTraits::Key) -
                                    points.begin());
}

/// Between the neighbouring points, or the bounds.
NumberRange PointRange(Side side, const LinguisticVariable& variable, TreeNode& node) {
    const auto& points = variable.MF.At(LastPart(*node.Parent)).Points;
    const std::size_t index = PointIndex(side, node);
    const bool isFirst = index == 0;
    const bool isLast = index + 1 == TraitsOf(side).Points.size();
    return {isFirst ? variable.LBound : double{points[index - 1]},
            isLast ? variable.UBound : double{points[index + 1]}};
}

class LabelEdit {
  public:
    LabelEdit(Side side, TreeNode& node, TextView label, Prompt& prompt)
        : side_(side), traits_(TraitsOf(side)), node_(node), label_(label), prompt_(prompt),
          variable_(VariablesOf(side).At(VariableNodeOf(node).Key)) {}

    bool Apply() {
        switch (node_.Tag) {
        case NodeTag::Name:
            return RenameVariable();
        case NodeTag::UBound:
            return SetBound(variable_.UBound);
        case NodeTag::LBound:
            return SetBound(variable_.LBound);
        case NodeTag::MF:
            return RenameTerm();
        case NodeTag::Point:
            return SetPoint();
        case NodeTag::Root:
            break;
        }
        return false;
    }

  private:
    bool Refuse(std::int32_t textId) {
        ShowRefusal(prompt_, Main::GetText(textId));
        return false;
    }

    /// The checks of a new name, and the last step that can refuse: the rules.
    template <class Value>
    bool Rename(const Text& oldName, const StringKeyedDictionary<Value>& names,
                const Text& oldReference, const Text& newReference) {
        if (label_.empty()) {
            return Refuse(TextIds::ForbiddenCharacter);
        }
        if (!DesignTime::ValidateIdentifier(oldName, label_, names, prompt_)) {
            return false;
        }
        return RenameInRules(oldReference, newReference) || Refuse(TextIds::DuplicateIdentifier);
    }

    bool RenameVariable() {
        VariableDictionary& variables = VariablesOf(side_);
        const Text oldName = variable_.Name;
        if (!Rename(oldName, variables, oldName + traits_.TermMark, label_ + traits_.TermMark)) {
            return false;
        }
        variables.Rekey(oldName, label_);
        variable_.Name = label_;
        RekeyChildren(node_, label_);
        node_.Caption = label_;
        return true;
    }

    bool RenameTerm() {
        const Text oldName(LastPart(node_));
        // Raises before the rules change where the model has lost the term.
        LinguisticTerm& term = variable_.MF.At(oldName);
        const Text stem = variable_.Name + traits_.TermMark;
        if (!Rename(oldName, variable_.MF, stem + oldName, stem + label_)) {
            return false;
        }
        variable_.MF.Rekey(oldName, label_);
        term.Name = label_;
        RekeyChildren(node_, node_.Parent->Key + u'\\' + label_);
        node_.Caption = label_;
        return true;
    }

    /// The number that the label says, within the range of its node.
    std::optional<double> CheckedNumber() {
        // The number is taken as it will be shown and stored, so that all three agree.
        label_ = DesignTime::NormalNumberText(label_);
        const NumberRange range = AllowedRange(side_, node_).value_or(NumberRange());
        if (!DesignTime::ValidateNumber(label_, range.Lower, range.Upper, prompt_)) {
            return std::nullopt;
        }
        return ParseUserNumber(label_);
    }

    bool SetBound(double& bound) {
        const auto number = CheckedNumber();
        if (!number) {
            // The model can have been replaced while the message was open.
            return false;
        }
        const double other = &bound == &variable_.UBound ? variable_.LBound : variable_.UBound;
        if (traits_.ChecksBoundPair &&
            !DesignTime::ValidateBoundsDiffer(UserNumberText(other), label_, prompt_)) {
            return false;
        }
        bound = *number;
        RekeyChildren(node_, node_.Parent->Key + u'\\' + label_);
        node_.Caption = label_;
        return true;
    }

    bool SetPoint() {
        const auto number = CheckedNumber();
        if (!number) {
            return false;
        }
        auto& points = variable_.MF.At(LastPart(*node_.Parent)).Points;
        const std::size_t index = PointIndex(side_, node_);
        points[index] = *number;
        if (index + 1 == traits_.Points.size()) {
            // An output term is a singleton: its points stay equal.
            std::fill(points.begin() + static_cast<std::ptrdiff_t>(index), points.end(), *number);
        }
        traits_.UpdateExtent(variable_.Name);
        node_.Caption = label_;
        return true;
    }

    Side side_;
    const SideTraits& traits_;
    TreeNode& node_;
    Text label_;
    Prompt& prompt_;
    LinguisticVariable& variable_;
};

} // namespace

std::optional<NumberRange> AllowedRange(Side side, TreeNode& node) {
    const auto variable = [&]() -> const LinguisticVariable& {
        return VariablesOf(side).At(VariableNodeOf(node).Key);
    };
    switch (node.Tag) {
    case NodeTag::UBound:
        return NumberRange{variable().Max, std::nullopt};
    case NodeTag::LBound:
        return NumberRange{std::nullopt, variable().Min};
    case NodeTag::Point:
        return PointRange(side, variable(), node);
    default:
        return std::nullopt;
    }
}

bool ApplyLabelEdit(Side side, TreeNode& node, TextView label, Prompt& prompt) {
    return LabelEdit(side, node, label, prompt).Apply();
}

} // namespace Quorvane::Editor
