// SPDX-License-Identifier: MIT
// The graph of the membership functions of one variable.
#pragma once

#include "editor/checks/Side.h"
#include "editor/page/GraphSurface.h"

namespace Quorvane::Editor {

/// Clears the surface and draws a variable: the frame, then each term in the next colour of the
/// palette, a trapezoid for an input and a vertical line for an output, its name above and its
/// points below. x is the variable's value, y the degree of membership. A trapezoid's vertical edge
/// on the border of the universe is left out. Raises MissingKey or ObjectNotSet, and draws nothing,
/// where the model lacks the variable.
void DrawVariableGraph(GraphSurface& surface, Side side, TextView name);

/// The height of texts, as near to the usual one as may be, of which none is printed over another
/// in a picture of a given height, all in pixels. 1 at least.
int GraphTextHeight(int pictureHeight, int usual);

/// The least height of a picture for texts of a height.
int GraphHeightFor(int textHeight);

/// Sets the coordinates for a universe from lower to upper, clears the surface and draws the
/// captions and the grid with its labels.
void DrawGraphFrame(GraphSurface& surface, double lower, double upper);

/// Prints a term's name above the graph, from x on, in the current colour. At the borders of the
/// universe it is moved inside, with a blank to keep it off the border.
void PrintTermName(GraphSurface& surface, TextView name, double x, double lower, double upper);

/// Prints a point's value, as the user reads it, in black below the axis: centred under the point,
/// and kept inside as term names are.
void PrintPointValue(GraphSurface& surface, double value, double lower, double upper);

} // namespace Quorvane::Editor
