// SPDX-License-Identifier: MIT
// SurfacePicture: the control surface, drawn from the points of a batch.
#include "host/form/run/SurfacePicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "host/form/parts/Automation.h"
#include "win/Dpi.h"
#include "win/WideText.h"

namespace Quorvane::Host {
namespace {

/// How wide a surface may be, in quarters of its height.
constexpr int WidestShape = 12;

/// The least width of a tile in pixels; among smaller ones nothing is seen but their edges.
constexpr int LeastTile = 8;

/// From deep blue (0) over green to yellow (1).
COLORREF ShadeOf(double share) {
    struct Stop {
        double Red, Green, Blue;
    };
    constexpr std::array<Stop, 4> Stops = {
        {{48, 60, 140}, {38, 130, 142}, {94, 201, 98}, {253, 231, 37}}};
    const double scaled = std::clamp(share, 0.0, 1.0) * (Stops.size() - 1);
    const auto first = std::min(static_cast<std::size_t>(scaled), Stops.size() - 2);
    const double part = scaled - static_cast<double>(first);
    const auto mix = [part](double from, double to) {
        return static_cast<int>(from + part * (to - from));
    };
    const Stop& from = Stops[first];
    const Stop& to = Stops[first + 1];
    return RGB(mix(from.Red, to.Red), mix(from.Green, to.Green), mix(from.Blue, to.Blue));
}

void PrintCentred(HDC context, const Text& text, RECT area, UINT vertical) {
    ::DrawTextW(context, Win::Wide(text), -1, &area,
                DT_CENTER | DT_SINGLELINE | DT_NOPREFIX | vertical);
}

/// A number with four digits, as the user writes it.
Text Short(double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.4g", number);
    return ValueText(Com::Variant(std::strtod(text.data(), nullptr)));
}

/// The lines of a square grid that are drawn: all, or every so many and the last one.
std::vector<std::size_t> DrawnLines(std::size_t side, int width) {
    const auto most = static_cast<std::size_t>(std::max(1, width / LeastTile));
    const std::size_t step = (side - 1 + most - 1) / most;
    std::vector<std::size_t> lines;
    for (std::size_t line = 0; line + 1 < side; line += step) {
        lines.push_back(line);
    }
    lines.push_back(side - 1);
    return lines;
}

} // namespace

SurfacePicture::SurfacePicture(HWND parent) {
    Create<SurfacePicture>(u"Response surface", WS_CHILD | WS_VISIBLE, parent);
}

void SurfacePicture::SetPoints(BatchPoints points, std::vector<Text> inputs) {
    points_ = std::move(points);
    inputs_ = std::move(inputs);
    values_.clear();
}

void SurfacePicture::ShowOutput(std::size_t output, Text name) {
    if (output >= points_.OutputCount) {
        return;
    }
    outputName_ = std::move(name);
    values_.clear();
    for (std::size_t point = 0; point < points_.Size(); ++point) {
        values_.push_back(points_.Output(point, output));
    }
    const auto [low, high] = std::ranges::minmax_element(values_);
    lowest_ = *low;
    highest_ = *high > *low ? *high : *low + 1;
    DrawAnew();
}

void SurfacePicture::ShowMessage(TextId message) {
    message_ = message;
    points_ = {};
    values_.clear();
    DrawAnew();
}

LRESULT SurfacePicture::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_PAINT:
        Paint();
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_SIZE:
        DrawAnew();
        return 0;
    default:
        return ProgramWindow::OnMessage(message, first, second);
    }
}

void SurfacePicture::Paint() {
    const Win::PaintDc screen(Get());
    if (!drawn_) {
        const RECT area = Win::ClientArea(Get());
        drawn_ = std::make_unique<Win::MemoryBitmap>(screen.Get(), area, COLOR_WINDOW);
        ::SetBkMode(drawn_->Context(), TRANSPARENT);
        // The message font is shared: it is left selected no longer than it is drawn with.
        const Win::Selection font(drawn_->Context(), MessageFont(Win::DpiOf(Get())));
        Draw(drawn_->Context(), area);
    }
    drawn_->CopyTo(screen.Get());
}

void SurfacePicture::DrawAnew() {
    drawn_.reset();
    ::InvalidateRect(Get(), nullptr, FALSE);
}

void SurfacePicture::Draw(HDC context, const RECT& area) const {
    if (values_.empty()) {
        PrintCentred(context, GetText(message_), area, DT_VCENTER);
    } else if (inputs_.size() == 1) {
        DrawCurve(context, area);
    } else {
        DrawSurface(context, area);
    }
}

void SurfacePicture::DrawCurve(HDC context, const RECT& area) const {
    RECT plot = area;
    ::InflateRect(&plot, -Scaled(36), -Scaled(24));
    ::FrameRect(context, &plot, ::GetSysColorBrush(COLOR_BTNSHADOW));
    const double first = points_.Inputs.front();
    const double last = points_.Inputs.back();
    std::vector<POINT> line;
    for (std::size_t i = 0; i < values_.size(); ++i) {
        const double across = last == first ? 0 : (points_.Inputs[i] - first) / (last - first);
        const double up = (values_[i] - lowest_) / (highest_ - lowest_);
        line.push_back({plot.left + std::lround(across * (plot.right - plot.left)),
                        plot.bottom - std::lround(up * (plot.bottom - plot.top))});
    }
    {
        const Win::Pen pen(::CreatePen(PS_SOLID, Scaled(2), RGB(38, 100, 160)));
        const Win::Selection penInUse(context, pen.Get());
        ::Polyline(context, line.data(), static_cast<int>(line.size()));
    }
    PrintCentred(context, inputs_[0] + u"  " + Short(first) + u" \u2026 " + Short(last), area,
                 DT_BOTTOM);
    PrintCentred(context, outputName_ + u"  " + Short(lowest_) + u" \u2026 " + Short(highest_),
                 area, DT_TOP);
}

void SurfacePicture::DrawSurface(HDC context, const RECT& area) const {
    const auto side = static_cast<std::size_t>(std::lround(std::sqrt(double(values_.size()))));
    if (side < 2 || side * side != values_.size()) {
        PrintCentred(context, GetText(TextId::IncompleteBatch), area, DT_VCENTER);
        return;
    }
    const int height = area.bottom - 2 * Scaled(24);
    const int width = std::min<int>(area.right - 2 * Scaled(16), height * WidestShape / 4);
    const int start = (area.right - width) / 2;
    // Seen from above the corner where both inputs are low: the first input runs to the right
    // and away, the second to the left and away.
    const auto project = [&](std::size_t i, std::size_t j) {
        const double a = double(i) / double(side - 1);
        const double b = double(j) / double(side - 1);
        const double z = (values_[i * side + j] - lowest_) / (highest_ - lowest_);
        return POINT{start + std::lround((0.5 + (a - b) * 0.5) * width),
                     area.bottom - Scaled(24) - std::lround(((a + b) * 0.27 + z * 0.46) * height)};
    };
    const Win::Pen pen(::CreatePen(PS_SOLID, 1, RGB(70, 70, 70)));
    const Win::Selection penInUse(context, pen.Get());
    const auto value = [&](std::size_t i, std::size_t j) { return values_[i * side + j]; };
    const std::vector<std::size_t> lines = DrawnLines(side, width);
    // The far tiles first, so that near ones cover them.
    for (std::size_t a = lines.size() - 1; a-- > 0;) {
        for (std::size_t b = lines.size() - 1; b-- > 0;) {
            const std::size_t i = lines[a];
            const std::size_t j = lines[b];
            const std::size_t beyondI = lines[a + 1];
            const std::size_t beyondJ = lines[b + 1];
            const double mean =
                (value(i, j) + value(beyondI, j) + value(i, beyondJ) + value(beyondI, beyondJ)) / 4;
            const std::array<POINT, 4> tile = {project(i, j), project(beyondI, j),
                                               project(beyondI, beyondJ), project(i, beyondJ)};
            const Win::Brush brush(
                ::CreateSolidBrush(ShadeOf((mean - lowest_) / (highest_ - lowest_))));
            const Win::Selection brushInUse(context, brush.Get());
            ::Polygon(context, tile.data(), static_cast<int>(tile.size()));
        }
    }
    const auto range = [&](std::size_t axis) {
        return inputs_[axis] + u"  " + Short(points_.Input(0, axis)) + u" \u2026 " +
               Short(points_.Input(points_.Size() - 1, axis));
    };
    RECT left = area;
    left.right = (area.left + area.right) / 2;
    RECT right = area;
    right.left = left.right;
    PrintCentred(context, range(1), left, DT_BOTTOM);
    PrintCentred(context, range(0), right, DT_BOTTOM);
    PrintCentred(context, outputName_ + u"  " + Short(lowest_) + u" \u2026 " + Short(highest_),
                 area, DT_TOP);
}

} // namespace Quorvane::Host
