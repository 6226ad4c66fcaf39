// SPDX-License-Identifier: MIT
// Tests of the nodes of the trees: what a model looks like as a tree, keys, neighbours.
#include "editor/page/TreeNode.h"

#include "editor/page/TreeIcons.h"
#include "editor/page/VariableNodes.h"
#include "tests/core/TestPlatform.h"
#include "tests/editor/PageTest.h"

#include <algorithm>

namespace Quorvane::Editor {
namespace {

class TreeNodeTest : public EditorTest {};

/// A node's kind, key, caption, image and looks.
std::string Describe(const TreeNode& node) {
    constexpr const char* tags[] = {"Root", "Name", "UBound", "LBound", "MF", "Point"};
    std::string line = tags[static_cast<std::size_t>(node.Tag)];
    line += " " + Narrow(node.Key) + " \"" + Narrow(node.Caption) + "\" " + Narrow(node.Image);
    line += node.Bold ? " bold" : "";
    line += node.Expanded ? " expanded" : "";
    return node.Color ? line + " color " + std::to_string(*node.Color) : line;
}

void DescribeAll(const TreeNode& node, std::vector<std::string>& lines) {
    lines.push_back(Describe(node));
    for (const auto& child : node.Children) {
        EXPECT_EQ(child->Parent, &node);
        DescribeAll(*child, lines);
    }
}

std::vector<std::string> DescribeTree(Side side) {
    std::vector<std::string> lines;
    DescribeAll(*MakeTree(side), lines);
    return lines;
}

void CollectImages(const TreeNode& node, std::vector<TextView>& images) {
    images.push_back(node.Image);
    for (const auto& child : node.Children) {
        CollectImages(*child, images);
    }
}

TEST_F(TreeNodeTest, AnInputHasItsBoundsAndTheFourPointsOfEachTerm) {
    Parse(u"A/1/-1/MF_1,-0.6,-0.2,0.2,0.6;T2,0,0,1,1|B/1E15/1E-12/X,2,3,4,5", u"C/1/0/P,0.5", u"");
    // 0x808000 is 8421376.
    const std::vector<std::string> expected{
        "Root [Input] \"Input\" Inputs bold expanded color 8421376",
        "Name A \"A\" Input bold",
        "UBound A\\1 \"1\" UBound",
        "LBound A\\-1 \"-1\" LBound",
        "MF A\\MF_1 \"MF_1\" MF expanded",
        "Point A\\MF_1\\Point:1 \"-0.6\" MF_P1",
        "Point A\\MF_1\\Point:2 \"-0.2\" MF_P2",
        "Point A\\MF_1\\Point:3 \"0.2\" MF_P3",
        "Point A\\MF_1\\Point:4 \"0.6\" MF_P4",
        "MF A\\T2 \"T2\" MF expanded",
        "Point A\\T2\\Point:1 \"0\" MF_P1",
        "Point A\\T2\\Point:2 \"0\" MF_P2",
        "Point A\\T2\\Point:3 \"1\" MF_P3",
        "Point A\\T2\\Point:4 \"1\" MF_P4",
        "Name B \"B\" Input bold",
        "UBound B\\1E+15 \"1E+15\" UBound",
        "LBound B\\1E-12 \"1E-12\" LBound",
        "MF B\\X \"X\" MF expanded",
        "Point B\\X\\Point:1 \"2\" MF_P1",
        "Point B\\X\\Point:2 \"3\" MF_P2",
        "Point B\\X\\Point:3 \"4\" MF_P3",
        "Point B\\X\\Point:4 \"5\" MF_P4",
    };
    EXPECT_EQ(DescribeTree(Side::Input), expected);
}

TEST_F(TreeNodeTest, AnOutputHasOnePointForEachTerm) {
    Parse(u"A/1/0/X,0,0,1,1", u"C/1/-1/P,0.5;Q,-0.5", u"");
    const std::vector<std::string> expected{
        "Root [Output] \"Output\" Outputs bold expanded color 8421376",
        "Name C \"C\" Output bold",
        "UBound C\\1 \"1\" UBound",
        "LBound C\\-1 \"-1\" LBound",
        "MF C\\P \"P\" MF expanded",
        "Point C\\P\\Point \"0.5\" MF_P",
        "MF C\\Q \"Q\" MF expanded",
        "Point C\\Q\\Point \"-0.5\" MF_P",
    };
    EXPECT_EQ(DescribeTree(Side::Output), expected);
}

TEST_F(TreeNodeTest, EqualOutputBoundsStillFillTheTree) {
    Parse(u"A/1/0/X,0,0,1,1", u"C/2/2/P,2", u"");
    const auto root = MakeTree(Side::Output);
    EXPECT_EQ(KeysBelow(*root), Texts({u"C", u"C\\2", u"C\\2", u"C\\P", u"C\\P\\Point"}));
}

TEST_F(TreeNodeTest, WithoutAModelThereIsTheRootAlone) {
    EXPECT_EQ(KeysBelow(*MakeTree(Side::Input)), Texts({}));
    EXPECT_EQ(KeysBelow(*MakeTree(Side::Output)), Texts({}));
}

TEST_F(TreeNodeTest, RootsAreNamedInTheCurrentLanguage) {
    Definition::State().LanguageId = Chinese;
    EXPECT_EQ(MakeTree(Side::Input)->Caption, u"输入");
    EXPECT_EQ(MakeTree(Side::Output)->Caption, u"输出");
}

TEST_F(TreeNodeTest, NumbersAreShownInTheUsersForm) {
    const TestPlatform platform({}, u",");
    Parse(u"A/1.5/-1/X,-0.25,0,0,1", u"C/1/0/P,0.5", u"");
    const PlatformInUse installed(platform);
    const auto inputs = MakeTree(Side::Input);
    EXPECT_EQ(FindNode(*inputs, u"A\\X\\Point:1")->Caption, u"-0,25");
    EXPECT_EQ(FindNode(*inputs, u"A\\1,5")->Caption, u"1,5");
    EXPECT_EQ(FindNode(*MakeTree(Side::Output), u"C\\P\\Point")->Caption, u"0,5");
}

TEST_F(TreeNodeTest, EveryImageHasAnIcon) {
    Parse(u"A/1/0/X,0,0,1,1", u"C/1/0/P,0.5", u"");
    std::vector<TextView> images;
    CollectImages(*MakeTree(Side::Input), images);
    CollectImages(*MakeTree(Side::Output), images);
    for (const TextView image : images) {
        EXPECT_NE(std::ranges::find(TreeIconKeys, image), std::end(TreeIconKeys)) << Narrow(image);
    }
}

TEST_F(TreeNodeTest, TheLastPartOfAKeyIsWhatFollowsTheParentsKey) {
    Parse(u"A/1/0/X,0,0,1,1|O\\dd/1/0/T\\1,0,0,1,1", u"", u"");
    const auto root = MakeTree(Side::Input);
    const std::pair<TextView, TextView> cases[] = {
        {u"A", u"A"},
        {u"A\\1", u"1"},
        {u"A\\X", u"X"},
        {u"A\\X\\Point:3", u"Point:3"},
        {u"O\\dd", u"O\\dd"},
        {u"O\\dd\\T\\1", u"T\\1"},
        {u"O\\dd\\T\\1\\Point:2", u"Point:2"},
    };
    for (const auto& [key, part] : cases) {
        EXPECT_EQ(LastPart(*FindNode(*root, key)), part);
    }
    EXPECT_EQ(LastPart(*root), u"[Input]");
}

TEST_F(TreeNodeTest, ANodeKnowsItsVariable) {
    Parse(u"A/1/0/X,0,0,1,1", u"", u"");
    const auto root = MakeTree(Side::Input);
    TreeNode* const variable = FindNode(*root, u"A");
    for (const TextView key : {u"A", u"A\\1", u"A\\0", u"A\\X", u"A\\X\\Point:4"}) {
        EXPECT_EQ(&VariableNodeOf(*FindNode(*root, key)), variable);
    }
}

TEST_F(TreeNodeTest, RekeyingReachesThePointsBelowTheTerms) {
    Parse(u"A/1/0/A,0,0,1,1|AA/1/0/A,0,0,1,1", u"", u"");
    const auto root = MakeTree(Side::Input);
    RekeyChildren(*FindNode(*root, u"A"), u"Long");
    EXPECT_EQ(KeysBelow(*root),
              Texts({u"Long", u"Long\\1", u"Long\\0", u"Long\\A", u"Long\\A\\Point:1",
                     u"Long\\A\\Point:2", u"Long\\A\\Point:3", u"Long\\A\\Point:4", u"AA", u"AA\\1",
                     u"AA\\0", u"AA\\A", u"AA\\A\\Point:1", u"AA\\A\\Point:2", u"AA\\A\\Point:3",
                     u"AA\\A\\Point:4"}));
}

TEST_F(TreeNodeTest, AnotherNodeOfItsKindStandsInForARemovedOne) {
    Parse(u"", u"A/1/0/X,0;Y,1|B/1/0/Z,1", u"");
    const auto root = MakeTree(Side::Output);
    const std::pair<TextView, TextView> cases[] = {
        {u"A", u"B"}, {u"B", u"A"}, {u"A\\X", u"A\\Y"}, {u"A\\Y", u"A\\X"}, {u"B\\Z", u"B"},
    };
    for (const auto& [removed, next] : cases) {
        EXPECT_EQ(NeighbourOf(*FindNode(*root, removed)).Key, next);
    }
    RemoveNode(*FindNode(*root, u"A"));
    EXPECT_EQ(NeighbourOf(*FindNode(*root, u"B")).Key, u"[Output]");
    RemoveNode(*FindNode(*root, u"B\\Z"));
    EXPECT_EQ(KeysBelow(*root), Texts({u"B", u"B\\1", u"B\\0"}));
}

} // namespace
} // namespace Quorvane::Editor
