// SPDX-License-Identifier: MIT
// BatchProgress: how far a batch is, by the events that end its cycles.
#pragma once

#include <windows.h>

namespace Quorvane::Host {

/// Fills a progress bar while it lives, and empties it at its end.
class BatchProgress {
  public:
    BatchProgress(HWND bar, double points) : bar_(bar), points_(points) {}
    BatchProgress(const BatchProgress&) = delete;
    BatchProgress& operator=(const BatchProgress&) = delete;
    ~BatchProgress();

    /// Counts a point; whether it is one of the hundred that are enough for the eye to follow.
    bool OnPoint();

    bool IsComplete() const { return done_ >= points_; }

  private:
    HWND bar_;
    double points_;
    double done_ = 0;
};

} // namespace Quorvane::Host
