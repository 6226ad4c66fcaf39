// SPDX-License-Identifier: MIT
// The graph of the membership functions of one variable.
#include "editor/page/DrawVariableGraph.h"

#include <algorithm>
#include <cmath>

#include "shared/NumberText.h"
#include "shared/TermColors.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {
namespace {

constexpr std::uint32_t Black = 0;
constexpr std::uint32_t Grey = 0x808080;

// The picture's top and height in degrees of membership: room for the y caption and the term names
// above 1, and for the values and the x caption below 0.
constexpr float TopEdge = 1.35F;
constexpr float PictureHeight = -1.77F;

/// The top of the y caption. The x caption is as many of its own heights below 0, which is just
/// below the values.
constexpr double CaptionPosition = 1.347;
constexpr double TermNameTop = 1.175;
constexpr double PointValueTop = -0.05;

// The heights of texts in pictures. Larger ones and the upper caption would reach into the names of
// terms; below smaller ones, the lower caption would move up into the values.
constexpr double LargestText = (CaptionPosition - TermNameTop) / -PictureHeight;
constexpr double SmallestText = PointValueTop / (CaptionPosition - 1) / PictureHeight;

struct GridLevel {
    double Degree;
    TextView Label;
};
constexpr GridLevel GridLevels[] = {{0.25, u" 0.25"}, {0.5, u" 0.5"}, {0.75, u" 0.75"}};
constexpr TextView TopLabel = u" 1";
constexpr double VerticalLines[] = {0.25, 0.5, 0.75};

// The surface works in single precision; everything is computed in double precision before.
void Line(GraphSurface& surface, double x1, double y1, double x2, double y2) {
    surface.Line(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                 static_cast<float>(y2));
}

void Print(GraphSurface& surface, TextView text, double x, double y) {
    surface.Print(text, static_cast<float>(x), static_cast<float>(y));
}

/// Prints a text at x, or from the lower or up to the upper border where it would reach beyond.
void PrintInside(GraphSurface& surface, TextView text, double x, double y, double lower,
                 double upper) {
    if (x <= lower) {
        Print(surface, u' ' + Text(text), lower, y);
    } else if (x + double{surface.TextWidth(text)} >= upper) {
        const Text padded = Text(text) + u' ';
        Print(surface, padded, upper - double{surface.TextWidth(padded)}, y);
    } else {
        Print(surface, text, x, y);
    }
}

void DrawTrapezoid(GraphSurface& surface, const LinguisticTerm& term,
                   const LinguisticVariable& variable) {
    const auto [foot1, shoulder1, shoulder2, foot2] = term.Points;
    if (foot1 != variable.LBound || foot1 != shoulder1) {
        Line(surface, foot1, 0, shoulder1, 1);
    }
    Line(surface, shoulder1, 1, shoulder2, 1);
    if (foot2 != variable.UBound || shoulder2 != foot2) {
        Line(surface, shoulder2, 1, foot2, 0);
    }
}

void DrawTerm(GraphSurface& surface, Side side, const LinguisticTerm& term,
              const LinguisticVariable& variable) {
    if (side == Side::Input) {
        DrawTrapezoid(surface, term, variable);
    } else {
        Line(surface, term.Points[0], 0, term.Points[0], 1);
    }
    // A singleton's shoulders are its point.
    const double middle = (term.Points[1] + term.Points[2]) / 2;
    PrintTermName(surface, term.Name, middle - double{surface.TextWidth(term.Name)} / 2,
                  variable.LBound, variable.UBound);
    for (std::size_t i = 0; i < TraitsOf(side).Points.size(); ++i) {
        PrintPointValue(surface, term.Points[i], variable.LBound, variable.UBound);
    }
}

} // namespace

void DrawVariableGraph(GraphSurface& surface, Side side, TextView name) {
    const LinguisticVariable& variable = VariablesOf(side).At(name);
    DrawGraphFrame(surface, variable.LBound, variable.UBound);
    surface.SetPen(PenStyle::Solid, 2);
    std::size_t color = 0;
    for (const auto& [key, term] : variable.MF) {
        surface.SetColor(TermColors[color]);
        DrawTerm(surface, side, term, variable);
        color = (color + 1) % TermColors.size();
    }
}

int GraphTextHeight(int pictureHeight, int usual) {
    const auto smallest = static_cast<int>(std::ceil(SmallestText * pictureHeight));
    const auto largest = static_cast<int>(std::floor(LargestText * pictureHeight));
    return std::max(1, std::min(std::max(usual, smallest), largest));
}

int GraphHeightFor(int textHeight) {
    return static_cast<int>(std::ceil(textHeight / LargestText));
}

void DrawGraphFrame(GraphSurface& surface, double lower, double upper) {
    const double range = upper - lower;
    surface.SetScale(
        {static_cast<float>(lower), static_cast<float>(range), TopEdge, PictureHeight});
    surface.Clear();
    surface.SetPen(PenStyle::Solid, 1);
    surface.SetColor(Black);

    const auto printCentred = [&](TextView text, double y) {
        Print(surface, text, (lower + upper - double{surface.TextWidth(text)}) / 2, y);
    };
    const Text xCaption = Main::GetText(TextIds::LinguisticVariable);
    printCentred(xCaption, CaptionPosition * double{surface.TextHeight(xCaption)});
    printCentred(Main::GetText(TextIds::DegreeOfMembership), CaptionPosition);

    surface.SetColor(Grey);
    Line(surface, lower, 0, upper, 0);
    Line(surface, lower, 1, upper, 1);
    surface.SetPen(PenStyle::Dotted, 1);
    const double middle = lower + 0.5 * range;
    for (const auto& [degree, label] : GridLevels) {
        Line(surface, lower, degree, upper, degree);
        Print(surface, label, middle, degree);
    }
    Print(surface, TopLabel, middle, 1);
    for (const double fraction : VerticalLines) {
        const double x = lower + fraction * range;
        Line(surface, x, 0, x, 1);
    }
}

void PrintTermName(GraphSurface& surface, TextView name, double x, double lower, double upper) {
    PrintInside(surface, name, x, TermNameTop, lower, upper);
}

void PrintPointValue(GraphSurface& surface, double value, double lower, double upper) {
    const Text text = UserNumberText(value);
    surface.SetColor(Black);
    PrintInside(surface, text, value - double{surface.TextWidth(text)} / 2, PointValueTop, lower,
                upper);
}

} // namespace Quorvane::Editor
