// SPDX-License-Identifier: MIT
// Mouse and keyboard, as the system gets them from a person.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>

namespace Quorvane::Driving {

/// Moves the mouse to a point of a window's client area and clicks.
void Click(HWND window, POINT point);

/// Clicks the middle of a window.
void Click(HWND window);

void DoubleClick(HWND window, POINT point);

/// Presses the left button at one point of a window, moves to the other in some steps, releases it.
void Drag(HWND window, POINT from, POINT to);

/// Presses and releases a key, with others held down.
void Press(WORD key, std::initializer_list<WORD> held = {});

/// Types a text.
void Type(std::wstring_view text);

} // namespace Quorvane::Driving
