// SPDX-License-Identifier: MIT
// From the variables of one side to the nodes of its tree.
#include "editor/page/VariableNodes.h"

#include "shared/NumberText.h"
#include "text/GetText.h"

namespace Quorvane::Editor {
namespace {

constexpr std::uint32_t RootColor = 0x808000;

void AddBoundNode(TreeNode& variableNode, NodeTag tag, TextView image, double bound) {
    const Text value = UserNumberText(bound);
    AddNode(
        variableNode,
        {.Tag = tag, .Key = variableNode.Key + u'\\' + value, .Caption = value, .Image = image});
}

} // namespace

std::unique_ptr<TreeNode> MakeTree(Side side) {
    const SideTraits& traits = TraitsOf(side);
    auto root = std::make_unique<TreeNode>(TreeNode{.Tag = NodeTag::Root,
                                                    .Key = Text(traits.RootKey),
                                                    .Caption = Main::GetText(traits.RootTextId),
                                                    .Image = traits.RootImage,
                                                    .Bold = true,
                                                    .Expanded = true,
                                                    .Color = RootColor});
    if (const auto& variables = Definition::State().*traits.Variables) {
        for (const auto& [name, variable] : *variables) {
            AddVariableNode(*root, side, variable);
        }
    }
    return root;
}

TreeNode& AddVariableNode(TreeNode& root, Side side, const LinguisticVariable& variable) {
    TreeNode& node = AddNode(root, {.Tag = NodeTag::Name,
                                    .Key = variable.Name,
                                    .Caption = variable.Name,
                                    .Image = TraitsOf(side).VariableImage,
                                    .Bold = true});
    AddBoundNode(node, NodeTag::UBound, u"UBound", variable.UBound);
    AddBoundNode(node, NodeTag::LBound, u"LBound", variable.LBound);
    for (const auto& [name, term] : variable.MF) {
        AddTermNode(node, side, term);
    }
    return node;
}

TreeNode& AddTermNode(TreeNode& variableNode, Side side, const LinguisticTerm& term) {
    TreeNode& node = AddNode(variableNode, {.Tag = NodeTag::MF,
                                            .Key = variableNode.Key + u'\\' + term.Name,
                                            .Caption = term.Name,
                                            .Image = u"MF",
                                            .Expanded = true});
    std::size_t index = 0;
    for (const auto& [key, image] : TraitsOf(side).Points) {
        AddNode(node, {.Tag = NodeTag::Point,
                       .Key = node.Key + u'\\' + Text(key),
                       .Caption = UserNumberText(term.Points[index++]),
                       .Image = image});
    }
    return node;
}

} // namespace Quorvane::Editor
