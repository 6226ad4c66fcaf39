// SPDX-License-Identifier: MIT
// Dialog units, in which the editors' windows are laid out.
#pragma once

#include <cmath>

namespace Quorvane::Editor {

/// Quarters and eighths of the average character of the font of dialogs.
struct DialogUnits {
    /// The size of that character in pixels.
    int CharacterWidth;
    int CharacterHeight;

    /// Units in pixels.
    int X(int units) const { return Scaled(units, CharacterWidth, 4); }
    int Y(int units) const { return Scaled(units, CharacterHeight, 8); }

  private:
    static int Scaled(int units, int character, int parts) {
        return static_cast<int>(std::lround(static_cast<double>(units) * character / parts));
    }
};

} // namespace Quorvane::Editor
