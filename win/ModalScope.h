// SPDX-License-Identifier: MIT
// Modality: one window of a thread that can be worked, and the others that wait.
#pragma once

#include <windows.h>

#include <vector>

namespace Quorvane::Win {

/// Makes a window modal to its whole thread for as long as it lives: all other top-level windows of
/// the thread that can be seen and worked are disabled, as the platform does it for a dialog that
/// has no owner. Windows that wait for others already stay as they are.
///
/// A host's frame could be asked to disable its modeless windows, but only where a control is
/// active in it; all its windows are windows of this thread, and disabled with them.
class ModalScope {
  public:
    /// Throws std::bad_alloc.
    explicit ModalScope(HWND modal);

    /// Enables those windows again that are still there. To come before the modal window is
    /// destroyed, so that one of them becomes the active window.
    ~ModalScope();

    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

  private:
    std::vector<HWND> disabled_;
};

} // namespace Quorvane::Win
