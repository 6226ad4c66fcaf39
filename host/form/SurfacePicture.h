// SPDX-License-Identifier: MIT
// SurfacePicture: the control surface drawn from the two batch files.
#pragma once

#include "host/form/Window.h"

#include <filesystem>
#include <string>
#include <vector>

namespace Quorvane::Host {

/// The points of a batch: one row of inputs and one of outputs for each.
struct BatchPoints {
    std::vector<std::vector<double>> Inputs;
    std::vector<std::vector<double>> Outputs;
};

/// Reads InData.txt and OutData.txt. Throws std::runtime_error for files that cannot be read or do
/// not fit together.
BatchPoints ReadBatch(const std::filesystem::path& folder);

/// Draws one output over one input as a curve, or over two inputs as a surface seen from above its
/// near corner. Systems of more inputs get a line of text.
class SurfacePicture final : public Window {
  public:
    explicit SurfacePicture(HWND parent);

    /// Shows the points; `output` counts from 0. The names caption the axes.
    void Show(BatchPoints points, std::vector<std::wstring> inputs, std::wstring outputName,
              std::size_t output);

    void Clear();

  protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint();
    void Draw(HDC context, const RECT& area) const;
    void DrawCurve(HDC context, const RECT& area) const;
    void DrawSurface(HDC context, const RECT& area) const;

    BatchPoints points_;
    std::vector<std::wstring> inputs_;
    std::wstring outputName_;
    std::vector<double> values_;
    double lowest_ = 0;
    double highest_ = 1;
};

} // namespace Quorvane::Host
