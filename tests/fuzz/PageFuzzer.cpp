// SPDX-License-Identifier: MIT
// The property page without windows: after every click and edit its trees are those of the model,
// and the rules what plain replacement makes of them.
#include <cmath>

#include "editor/page/FisPage.h"
#include "editor/page/VariableNodes.h"
#include "shared/NumberText.h"
#include "tests/fuzz/EditedSystem.h"

namespace Quorvane::Fuzz {
namespace {

using Editor::NodeTag;
using Editor::Side;
using Editor::TreeNode;

/// A tree view that shows nothing.
class BlindTree final : public Editor::TreeControl {
  public:
    void Show(TreeNode& root) override { Root = &root; }
    void Insert(TreeNode&) override {}
    void Remove(TreeNode&) override {}
    void UpdateCaption(TreeNode&) override {}
    void Select(const TreeNode&) override {}
    void EditLabel(TreeNode&) override {}

    TreeNode* Root = nullptr;
};

/// A surface that takes every stroke but not-a-number.
class BlindSurface final : public Editor::GraphSurface {
  public:
    void SetScale(const Editor::GraphScale& scale) override {
        CheckNumbers({scale.Left, scale.Width, scale.Top, scale.Height});
    }
    void Clear() override {}
    void SetColor(std::uint32_t) override {}
    void SetPen(Editor::PenStyle, int) override {}
    void Line(float x1, float y1, float x2, float y2) override { CheckNumbers({x1, y1, x2, y2}); }
    void Print(TextView, float x, float y) override { CheckNumbers({x, y}); }
    float TextWidth(TextView text) const override { return static_cast<float>(text.size()); }
    float TextHeight(TextView) const override { return -1; }

  private:
    static void CheckNumbers(std::initializer_list<float> numbers) {
        for (const float number : numbers) {
            Check(!std::isnan(number), "a coordinate");
        }
    }
};

/// A control that takes every text, or none.
class SpelledControl final : public Editor::SelectedControl {
  public:
    explicit SpelledControl(bool refuses) : refuses_(refuses) {}
    void Put(TextView, const Text&) override {
        if (refuses_) {
            throw FisError(RuntimeError::InvalidCall);
        }
    }

  private:
    bool refuses_;
};

bool SameTree(const TreeNode& left, const TreeNode& right) {
    return left.Tag == right.Tag && left.Key == right.Key && left.Caption == right.Caption &&
           left.Image == right.Image &&
           std::ranges::equal(
               left.Children, right.Children,
               [](const auto& one, const auto& other) { return SameTree(*one, *other); });
}

class PageUser {
  public:
    explicit PageUser(std::span<const std::uint8_t> input) : choices_(input) {}

    void Run() {
        LoadSystem(choices_);
        Select();
        constexpr int MostSteps = 40;
        for (int step = 0; step < MostSteps && !choices_.AtEnd(); ++step) {
            Step();
            CheckAll();
        }
        CheckThatItReadsBack();
    }

  private:
    void Select() {
        page_.SelectionChanged(choices_.Percent(5));
        rules_.Load();
    }

    void Step() {
        switch (choices_.Below(10)) {
        case 0:
            Apply();
            break;
        case 1:
            page_.EnterTree(AnySide());
            break;
        case 2:
            page_.Modify();
            break;
        case 3:
            Add();
            break;
        case 4:
            Delete();
            break;
        case 5:
        case 6:
            Click();
            break;
        default:
            Edit();
            break;
        }
    }

    Side AnySide() { return choices_.Percent(60) ? Side::Input : Side::Output; }
    TreeNode& Root(Side side) { return *(side == Side::Input ? input_ : output_).Root; }

    /// A node on the way down to a leaf.
    TreeNode& AnyNode(Side side) {
        TreeNode* node = &Root(side);
        while (!node->Children.empty() && !choices_.Percent(25)) {
            node = node->Children[choices_.Below(static_cast<std::uint32_t>(node->Children.size()))]
                       .get();
        }
        return *node;
    }

    void Click() {
        const Side side = AnySide();
        page_.NodeClick(side, AnyNode(side));
    }

    void Apply() {
        SpelledControl control(choices_.Percent(20));
        Raised([&] { page_.ApplyChanges(control); });
        if (choices_.Percent(30)) {
            Select();
        }
    }

    void Add() {
        const Side side = page_.CurrentTree();
        const bool isVariable = page_.Selected(side)->Tag == NodeTag::Root;
        const std::size_t count = Root(side).Children.size();
        const auto raised = Raised([this] { page_.Add(); });
        Check(!raised || IsPlatformError(*raised, RuntimeError::Overflow), "how adding fails");
        if (isVariable && Root(side).Children.size() != count) {
            rules_.Clear();
        }
    }

    void Delete() {
        const Side side = page_.CurrentTree();
        const TreeNode& node = *page_.Selected(side);
        const bool isTerm = node.Tag == NodeTag::MF;
        const Text part = isTerm ? node.Parent->Key + Mark(side) + Text(LastPart(node)) : Text();
        const std::size_t nodes = CountNodes(Root(side));
        page_.Delete();
        if (CountNodes(Root(side)) == nodes) {
            return;
        }
        if (isTerm) {
            rules_.RemoveContaining(part);
        } else {
            rules_.Clear();
        }
    }

    void Edit() {
        const Side side = AnySide();
        TreeNode& node = AnyNode(side);
        const Text old = node.Caption;
        const Text stem = node.Tag == NodeTag::MF ? node.Parent->Key + Mark(side) : Text();
        const Text label = Label(node);
        if (!page_.BeforeLabelEdit(side, node) && choices_.Percent(50)) {
            return;
        }
        if (!page_.AfterLabelEdit(side, node, label)) {
            return;
        }
        if (node.Tag == NodeTag::Name) {
            Check(rules_.Rename(old + Mark(side), label + Mark(side)), "a rename");
        } else if (node.Tag == NodeTag::MF) {
            Check(rules_.Rename(stem + old, stem + label), "a rename");
        } else {
            Check(node.Caption == UserNumberText(ParseUserNumber(label)), "a number as shown");
        }
    }

    /// What a person types: a name, a name that is taken, a number, or anything.
    Text Label(const TreeNode& node) {
        switch (choices_.Below(6)) {
        case 0:
            return node.Caption;
        case 1:
            return AnyNode(AnySide()).Caption;
        case 2: {
            Text capitals = node.Caption;
            std::ranges::transform(capitals, capitals.begin(), FoldCase);
            return capitals;
        }
        case 3: {
            static const std::vector<Text> odd = {
                u"",       u"9a",  u"a b",     u"[NONE]",       u"x>y",   u"1E308",
                u"-1E308", u" 7 ", u"1.7E308", u"TooLongAName", u"1E999", u"0.1234567890123456789"};
            return choices_.Pick(odd);
        }
        case 4:
            return NumberText(choices_.Between(-40, 160) / 4.0);
        default: {
            Text text;
            for (std::uint32_t size = choices_.Below(4); size > 0; --size) {
                text += static_cast<char16_t>(u'A' + choices_.Below(3));
            }
            return text;
        }
        }
    }

    static char16_t Mark(Side side) { return side == Side::Input ? u'>' : u'<'; }

    static std::size_t CountNodes(const TreeNode& node) {
        std::size_t count = 1;
        for (const auto& child : node.Children) {
            count += CountNodes(*child);
        }
        return count;
    }

    void CheckAll() {
        rules_.CheckAgainstModel();
        for (const Side side : {Side::Input, Side::Output}) {
            Check(SameTree(Root(side), *Editor::MakeTree(side)), "a tree of the model");
        }
        BlindSurface surface;
        page_.DrawGraph(surface);
    }

    Reference::SpelledChoices choices_;
    SpelledPrompt prompt_{choices_};
    BlindTree input_;
    BlindTree output_;
    Editor::FisPage page_{prompt_, input_, output_};
    PlainRules rules_;
};

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::PageUser({data, size}).Run();
    return 0;
}
