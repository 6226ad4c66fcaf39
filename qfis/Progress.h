// SPDX-License-Identifier: MIT
// How far a long command has come, on a terminal.
#pragma once

#include <chrono>

#include "qfis/Console.h"

namespace Quorvane::Qfis {

/// Shows a percentage once a command has taken more than a second, and wipes it at the end.
class Progress {
  public:
    explicit Progress(const Console& console) : console_(console) {}
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() {
        if (isShown_) {
            console_.Err << "\r     \r" << std::flush;
        }
    }

    void Show(double share) {
        if (!console_.ShowsProgress) {
            return;
        }
        const auto now = std::chrono::steady_clock::now();
        if (now >= next_) {
            next_ = now + std::chrono::milliseconds(200);
            isShown_ = true;
            console_.Err << '\r' << static_cast<int>(share * 100) << " %" << std::flush;
        }
    }

  private:
    const Console& console_;
    std::chrono::steady_clock::time_point next_ =
        std::chrono::steady_clock::now() + std::chrono::seconds(1);
    bool isShown_ = false;
};

} // namespace Quorvane::Qfis
