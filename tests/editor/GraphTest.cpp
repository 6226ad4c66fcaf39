// SPDX-License-Identifier: MIT
// Tests of the graph: the primitives of the frame and of the terms, and the page that asks for it.
#include <algorithm>
#include <iterator>
#include <span>
#include <sstream>
#include <tuple>

#include "editor/page/DrawVariableGraph.h"
#include "tests/core/TestPlatform.h"
#include "tests/editor/PageTest.h"

namespace Quorvane::Editor {
namespace {

using Lines = std::vector<std::string>;

/// Records primitives as lines of text. Every character is as wide as another, and texts are 1/16
/// of a degree high.
class GraphRecorder final : public GraphSurface {
  public:
    explicit GraphRecorder(float characterWidth = 0.125F) : characterWidth_(characterWidth) {}

    void SetScale(const GraphScale& scale) override {
        Note("scale", scale.Left, scale.Width, scale.Top, scale.Height);
    }
    void Clear() override { Note("clear"); }
    void SetColor(std::uint32_t color) override {
        std::ostringstream line;
        line << "color " << std::hex << color;
        lines_.push_back(line.str());
    }
    void SetPen(PenStyle style, int width) override {
        Note(style == PenStyle::Solid ? "solid pen" : "dotted pen", width);
    }
    void Line(float x1, float y1, float x2, float y2) override { Note("line", x1, y1, x2, y2); }
    void Print(TextView text, float x, float y) override {
        Note(("print \"" + Narrow(text) + "\"").c_str(), x, y);
    }
    float TextWidth(TextView text) const override {
        return characterWidth_ * static_cast<float>(text.size());
    }
    float TextHeight(TextView) const override { return -0.0625F; }

    Lines Take() { return std::exchange(lines_, {}); }

  private:
    template <class... Numbers>
    void Note(const char* word, Numbers... numbers) {
        std::ostringstream line;
        line << word;
        ((line << ' ' << numbers), ...);
        lines_.push_back(line.str());
    }

    float characterWidth_;
    Lines lines_;
};

Lines Starting(const Lines& lines, const std::string& start) {
    Lines chosen;
    std::ranges::copy_if(lines, std::back_inserter(chosen),
                         [&](const std::string& line) { return line.starts_with(start); });
    return chosen;
}

/// What is drawn of a variable after the frame.
Lines TermsOf(Side side, TextView name, float characterWidth = 0.125F) {
    GraphRecorder surface(characterWidth);
    DrawVariableGraph(surface, side, name);
    Lines lines = surface.Take();
    const LinguisticVariable& variable = VariablesOf(side).At(name);
    DrawGraphFrame(surface, variable.LBound, variable.UBound);
    const Lines frame = surface.Take();
    EXPECT_TRUE(std::ranges::equal(frame, std::span(lines).first(frame.size())));
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(frame.size()));
    EXPECT_EQ(lines.front(), "solid pen 2");
    lines.erase(lines.begin());
    return lines;
}

void UseInput(TextView inputs) {
    Parse(inputs, u"C/1/-1/P,0", u"");
}

class GraphTest : public PageTest {};

TEST_F(GraphTest, TheFrameHasCaptionsAGridAndItsLabels) {
    GraphRecorder surface;
    DrawGraphFrame(surface, -1, 1);
    // 19 characters are 2.375 wide, 20 are 2.5; 1.347 heights of 1/16 are 0.0841875.
    const Lines expected{
        "scale -1 2 1.35 -1.77",
        "clear",
        "solid pen 1",
        "color 0",
        "print \"Linguistic Variable\" -1.1875 -0.0841875",
        "print \"Degree of Membership\" -1.25 1.347",
        "color 808080",
        "line -1 0 1 0",
        "line -1 1 1 1",
        "dotted pen 1",
        "line -1 0.25 1 0.25",
        "print \" 0.25\" 0 0.25",
        "line -1 0.5 1 0.5",
        "print \" 0.5\" 0 0.5",
        "line -1 0.75 1 0.75",
        "print \" 0.75\" 0 0.75",
        "print \" 1\" 0 1",
        "line -0.5 0 -0.5 1",
        "line 0 0 0 1",
        "line 0.5 0 0.5 1",
    };
    EXPECT_EQ(surface.Take(), expected);
}

/// Records where texts stand in a picture of so many pixels, from top to bottom.
class TextRows final : public GraphSurface {
  public:
    struct Row {
        double Top;
        double Bottom;
        Text Content;
    };

    TextRows(int pictureHeight, int textHeight)
        : pictureHeight_(pictureHeight), textHeight_(textHeight) {}

    void SetScale(const GraphScale& scale) override { scale_ = scale; }
    void Clear() override {}
    void SetColor(std::uint32_t) override {}
    void SetPen(PenStyle, int) override {}
    void Line(float, float, float, float) override {}
    void Print(TextView text, float, float y) override {
        const double top =
            (double{y} - double{scale_.Top}) / double{scale_.Height} * pictureHeight_;
        rows_.push_back({top, top + textHeight_, Text(text)});
    }
    float TextWidth(TextView) const override { return 0; }
    float TextHeight(TextView) const override {
        return scale_.Height * static_cast<float>(textHeight_) / static_cast<float>(pictureHeight_);
    }

    std::vector<Row> Sorted() const {
        std::vector<Row> rows = rows_;
        std::ranges::sort(rows, {}, &Row::Top);
        return rows;
    }

  private:
    int pictureHeight_;
    int textHeight_;
    GraphScale scale_{};
    std::vector<Row> rows_;
};

TEST_F(GraphTest, NoTextIsPrintedOverAnotherWhateverTheHeightOfThePicture) {
    UseInput(u"A/1/-1/Low,-0.5,-0.5,0.5,0.5");
    for (int height = 60; height <= 500; ++height) {
        TextRows surface(height, GraphTextHeight(height, 13));
        DrawVariableGraph(surface, Side::Input, u"A");
        double top = 0;
        double bottom = -0.5;
        for (const TextRows::Row& row : surface.Sorted()) {
            // The labels of the grid stand beside its lines, values beside each other.
            if (!row.Content.starts_with(u' ') && row.Top != top) {
                EXPECT_GE(row.Top, bottom - 0.51) << height << ' ' << Narrow(row.Content);
                top = row.Top;
                bottom = row.Bottom;
            }
        }
        EXPECT_LE(bottom, height + 0.5) << height;
    }
}

TEST_F(GraphTest, TextsHaveTheUsualHeightWhereTheyMay) {
    const std::tuple<int, int> cases[] = {{10, 1},   {60, 5},   {100, 9},  {133, 12}, {134, 13},
                                          {159, 13}, {160, 14}, {200, 17}, {500, 41}};
    for (const auto& [picture, text] : cases) {
        EXPECT_EQ(GraphTextHeight(picture, 13), text) << picture;
    }
    EXPECT_EQ(GraphHeightFor(13), 134);
    EXPECT_EQ(GraphHeightFor(0), 0);
}

TEST_F(GraphTest, TheFrameFollowsTheBounds) {
    GraphRecorder surface(0.5F);
    DrawGraphFrame(surface, 10, 50);
    const Lines lines = surface.Take();
    EXPECT_EQ(lines.front(), "scale 10 40 1.35 -1.77");
    EXPECT_EQ(
        Starting(lines, "line"),
        (Lines{"line 10 0 50 0", "line 10 1 50 1", "line 10 0.25 50 0.25", "line 10 0.5 50 0.5",
               "line 10 0.75 50 0.75", "line 20 0 20 1", "line 30 0 30 1", "line 40 0 40 1"}));
    EXPECT_EQ(Starting(lines, "print"),
              (Lines{"print \"Linguistic Variable\" 25.25 -0.0841875",
                     "print \"Degree of Membership\" 25 1.347", "print \" 0.25\" 30 0.25",
                     "print \" 0.5\" 30 0.5", "print \" 0.75\" 30 0.75", "print \" 1\" 30 1"}));
}

TEST_F(GraphTest, TheCaptionsAreInTheCurrentLanguage) {
    Definition::State().LanguageId = Chinese;
    GraphRecorder surface;
    DrawGraphFrame(surface, -1, 1);
    // Four and three characters.
    const Lines prints = Starting(surface.Take(), "print");
    EXPECT_EQ(prints[0], "print \"????\" -0.25 -0.0841875");
    EXPECT_EQ(prints[1], "print \"???\" -0.1875 1.347");
}

TEST_F(GraphTest, TheTermOfANewVariableIsOneBlueTrapezoid) {
    UseInput(u"A/1/-1/MF_1,-0.6,-0.2,0.2,0.6");
    EXPECT_EQ(TermsOf(Side::Input, u"A"),
              (Lines{"color ff0000", "line -0.6 0 -0.2 1", "line -0.2 1 0.2 1", "line 0.2 1 0.6 0",
                     "print \"MF_1\" -0.25 1.175", "color 0", "print \"-0.6\" -0.85 -0.05",
                     "color 0", "print \"-0.2\" -0.45 -0.05", "color 0",
                     "print \"0.2\" 0.0125 -0.05", "color 0", "print \"0.6\" 0.4125 -0.05"}));
}

TEST_F(GraphTest, AShoulderOnABorderHasNoEdgeThere) {
    struct Case {
        TextView Points;
        Lines Expected;
    };
    const Case cases[] = {
        {u"-1,-1,0,0.5", {"line -1 1 0 1", "line 0 1 0.5 0"}},
        {u"-0.5,0,1,1", {"line -0.5 0 0 1", "line 0 1 1 1"}},
        {u"-1,-1,1,1", {"line -1 1 1 1"}},
        {u"-1,-0.5,0.5,1", {"line -1 0 -0.5 1", "line -0.5 1 0.5 1", "line 0.5 1 1 0"}},
        // Inside the borders a vertical edge is drawn.
        {u"-0.5,-0.5,0.5,0.5", {"line -0.5 0 -0.5 1", "line -0.5 1 0.5 1", "line 0.5 1 0.5 0"}},
        {u"0,0,0,0", {"line 0 0 0 1", "line 0 1 0 1", "line 0 1 0 0"}},
        {u"-1,-1,-1,-1", {"line -1 1 -1 1", "line -1 1 -1 0"}},
        {u"-1,0,0,1", {"line -1 0 0 1", "line 0 1 0 1", "line 0 1 1 0"}},
    };
    for (const auto& [points, expected] : cases) {
        UseInput(u"A/1/-1/T," + Text(points));
        EXPECT_EQ(Starting(TermsOf(Side::Input, u"A"), "line"), expected) << Narrow(points);
    }
}

TEST_F(GraphTest, TheThirteenthTermIsBlueAgain) {
    Text inputs = u"A/1/-1/T1,-1,0,0,1";
    Text outputs = u"C/1/-1/T1,0";
    for (const TextView number : {u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10", u"11",
                                  u"12", u"13", u"14", u"15", u"16"}) {
        inputs += u";T" + Text(number) + u",-1,0,0,1";
        outputs += u";T" + Text(number) + u",0";
    }
    Parse(inputs, outputs, u"");
    const Lines palette{"color ff0000", "color ff",     "color ffff",   "color 8000",
                        "color ff00ff", "color 808000", "color 800080", "color 8080",
                        "color ff00",   "color 80",     "color ffff00", "color 800000",
                        "color ff0000", "color ff",     "color ffff",   "color 8000"};
    for (const auto& [side, name] : {std::pair(Side::Input, u"A"), std::pair(Side::Output, u"C")}) {
        Lines colors = Starting(TermsOf(side, name), "color");
        std::erase(colors, "color 0");
        EXPECT_EQ(colors, palette);
    }
}

TEST_F(GraphTest, OutputsAreVerticalLines) {
    Parse(u"A/1/-1/T,0,0,1,1", u"C/1/-1/Low,-0.5;High,0.5", u"");
    EXPECT_EQ(TermsOf(Side::Output, u"C"),
              (Lines{"color ff0000", "line -0.5 0 -0.5 1", "print \"Low\" -0.6875 1.175", "color 0",
                     "print \"-0.5\" -0.75 -0.05", "color ff", "line 0.5 0 0.5 1",
                     "print \"High\" 0.25 1.175", "color 0", "print \"0.5\" 0.3125 -0.05"}));
}

TEST_F(GraphTest, TextsAreKeptInsideTheBorders) {
    struct Case {
        double X;
        const char* Expected;
    };
    // "Name" is 0.5 wide, "Name " 0.625.
    const Case cases[] = {
        {-2, "print \" Name\" -1 1.175"},        {-1, "print \" Name\" -1 1.175"},
        {-0.875, "print \"Name\" -0.875 1.175"}, {0, "print \"Name\" 0 1.175"},
        {0.375, "print \"Name\" 0.375 1.175"},   {0.5, "print \"Name \" 0.375 1.175"},
        {3, "print \"Name \" 0.375 1.175"},
    };
    for (const auto& [x, expected] : cases) {
        GraphRecorder surface;
        PrintTermName(surface, u"Name", x, -1, 1);
        EXPECT_EQ(surface.Take(), Lines{expected}) << x;
    }
}

TEST_F(GraphTest, ValuesAreCentredBelowTheAxisAndKeptInside) {
    struct Case {
        double Value;
        const char* Expected;
    };
    const Case cases[] = {
        {-1, "print \" -1\" -1 -0.05"},        {0, "print \"0\" -0.0625 -0.05"},
        {0.25, "print \"0.25\" 0 -0.05"},      {1, "print \"1 \" 0.75 -0.05"},
        {0.75, "print \"0.75 \" 0.375 -0.05"}, {-0.75, "print \" -0.75\" -1 -0.05"},
    };
    for (const auto& [value, expected] : cases) {
        GraphRecorder surface;
        PrintPointValue(surface, value, -1, 1);
        EXPECT_EQ(surface.Take(), (Lines{"color 0", expected})) << value;
    }
}

TEST_F(GraphTest, ValuesAreInTheUsersForm) {
    const TestPlatform platform({}, u",");
    const PlatformInUse installed(platform);
    GraphRecorder surface;
    PrintPointValue(surface, 0.25, -1, 1);
    EXPECT_EQ(surface.Take(), (Lines{"color 0", "print \"0,25\" 0 -0.05"}));
}

TEST_F(GraphTest, NamesAreCentredOverTheirTermAndClampedAtBothBorders) {
    UseInput(u"A/1/-1/Left,-1,-1,-1,-0.5;Right,0.5,1,1,1;Middle,-0.5,0,0.5,0.75");
    EXPECT_EQ(Starting(TermsOf(Side::Input, u"A"), "print \"Middle"),
              Lines{"print \"Middle\" -0.125 1.175"});
    EXPECT_EQ(Starting(TermsOf(Side::Input, u"A"), "print \" Left"),
              Lines{"print \" Left\" -1 1.175"});
    // "Right " is 0.75 wide.
    EXPECT_EQ(Starting(TermsOf(Side::Input, u"A"), "print \"Right"),
              Lines{"print \"Right \" 0.25 1.175"});
}

TEST_F(GraphTest, EqualBoundsAndExtremeOnesAreDrawn) {
    Parse(u"A/1E15/1E-12/T,1E-12,1,1E14,1E15", u"C/2/2/P,2|D/1E308/-1E308/P,0", u"");
    EXPECT_EQ(Starting(TermsOf(Side::Output, u"C"), "line"), Lines{"line 2 0 2 1"});
    EXPECT_EQ(Starting(TermsOf(Side::Input, u"A"), "line"),
              (Lines{"line 1e-12 0 1 1", "line 1 1 1e+14 1", "line 1e+14 1 1e+15 0"}));
    EXPECT_EQ(Starting(TermsOf(Side::Output, u"D"), "line"), Lines{"line 0 0 0 1"});
}

TEST_F(GraphTest, WithoutTheVariableNothingIsDrawn) {
    GraphRecorder surface;
    EXPECT_EQ(Raised([&] { DrawVariableGraph(surface, Side::Input, u"A"); }),
              PlatformError(RuntimeError::ObjectNotSet));
    UseInput(u"A/1/-1/T,0,0,1,1");
    EXPECT_EQ(Raised([&] { DrawVariableGraph(surface, Side::Output, u"A"); }),
              PlatformError(RuntimeError::MissingKey));
    EXPECT_EQ(surface.Take(), Lines());
}

/// What the page has the graph show: the expected primitives of a variable.
Lines GraphOf(Side side, TextView name) {
    GraphRecorder surface;
    DrawVariableGraph(surface, side, name);
    return surface.Take();
}

Lines GraphOf(const FisPage& page) {
    GraphRecorder surface;
    page.DrawGraph(surface);
    return surface.Take();
}

TEST_F(GraphTest, ThePageShowsTheVariableOfTheClickedNode) {
    const std::tuple<Side, TextView, TextView> cases[] = {
        {Side::Input, u"A", u"A"},
        {Side::Input, u"B\\10", u"B"},
        {Side::Input, u"A\\-1", u"A"},
        {Side::Input, u"B\\LO", u"B"},
        {Side::Output, u"C\\MF_1\\Point", u"C"},
        {Side::Output, u"D", u"D"},
    };
    EXPECT_EQ(GraphOf(Page), Lines{"clear"});
    Load();
    EXPECT_EQ(GraphOf(Page), Lines{"clear"});
    for (const auto& [side, key, variable] : cases) {
        Click(side, key);
        EXPECT_EQ(GraphOf(Page), GraphOf(side, variable)) << Narrow(key);
    }
    for (const Side side : {Side::Input, Side::Output}) {
        Click(side, TraitsOf(side).RootKey);
        EXPECT_EQ(GraphOf(Page), Lines{"clear"});
        Click(Side::Input, u"A");
    }
    Page.SelectionChanged(false);
    EXPECT_EQ(GraphOf(Page), Lines{"clear"});
}

TEST_F(GraphTest, ThePageShowsTheVariableThatWasEdited) {
    Load();
    Click(Side::Input, u"B");
    EXPECT_TRUE(Edit(Side::Output, u"C\\MF_1\\Point", u"-0.25"));
    EXPECT_EQ(GraphOf(Page), GraphOf(Side::Output, u"C"));
    EXPECT_EQ(Starting(GraphOf(Page), "line -0.25"), Lines{"line -0.25 0 -0.25 1"});
    EXPECT_TRUE(Edit(Side::Input, u"A", u"Renamed"));
    EXPECT_EQ(GraphOf(Page), GraphOf(Side::Input, u"Renamed"));
    EXPECT_FALSE(Edit(Side::Output, u"C", u"1"));
    EXPECT_EQ(GraphOf(Page), GraphOf(Side::Input, u"Renamed"));
}

TEST_F(GraphTest, ThePageShowsWhatWasAddedAndWhatStandsInForWhatIsGone) {
    Load();
    Click(Side::Input, u"[Input]");
    Page.Add();
    EXPECT_EQ(GraphOf(Page), GraphOf(Side::Input, u"Input_1"));
    Page.Delete();
    EXPECT_EQ(GraphOf(Page), GraphOf(Side::Input, u"B"));
}

TEST_F(GraphTest, AVariableThatTheModelHasLostIsCleared) {
    Load();
    Click(Side::Input, u"A");
    Definition::State().InputVariables->Remove(u"A");
    EXPECT_EQ(GraphOf(Page), Lines{"clear"});
    Definition::ReleaseModel();
    EXPECT_EQ(GraphOf(Page), Lines{"clear"});
}

} // namespace
} // namespace Quorvane::Editor
