// SPDX-License-Identifier: MIT
// SurfacePicture: the control surface, drawn from the points of a batch.
#pragma once

#include <memory>
#include <vector>

#include "host/form/parts/ProgramWindow.h"
#include "host/form/parts/Texts.h"
#include "host/formfile/BatchFiles.h"
#include "shared/Text.h"
#include "win/MemoryBitmap.h"

namespace Quorvane::Host {

/// Draws one output over one input as a curve, or over two inputs as a surface seen from above its
/// near corner.
class SurfacePicture final : public ProgramWindow {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneSurfacePicture";

    explicit SurfacePicture(HWND parent);

    /// Takes the points of a batch over one or two inputs, whose names caption the axes.
    void SetPoints(BatchPoints points, std::vector<Text> inputs);

    /// Draws an output of the points, counted from 0; without points it does nothing.
    void ShowOutput(std::size_t output, Text name);

    /// Forgets the points and shows a line of text.
    void ShowMessage(TextId message);

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    void Paint();
    void DrawAnew();
    void Draw(HDC context, const RECT& area) const;
    void DrawCurve(HDC context, const RECT& area) const;
    void DrawSurface(HDC context, const RECT& area) const;

    /// The picture as it was drawn; a fine surface takes too long to be drawn whenever it is
    /// painted.
    std::unique_ptr<Win::MemoryBitmap> drawn_;
    TextId message_ = TextId::NoBatchYet;
    BatchPoints points_;
    std::vector<Text> inputs_;
    Text outputName_;
    std::vector<double> values_;
    double lowest_ = 0;
    double highest_ = 1;
};

} // namespace Quorvane::Host
