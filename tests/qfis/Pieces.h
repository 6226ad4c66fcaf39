// SPDX-License-Identifier: MIT
// Bytes that come in pieces.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "qfis/Console.h"

namespace Quorvane::Qfis {

class Pieces final : public ByteSource {
  public:
    explicit Pieces(std::vector<std::string> pieces) : pieces_(std::move(pieces)) {}

    std::size_t Read(char* bytes, std::size_t count) override {
        if (next_ == pieces_.size()) {
            return 0;
        }
        std::string& piece = pieces_[next_];
        const std::size_t taken = std::min(count, piece.size());
        piece.copy(bytes, taken);
        piece.erase(0, taken);
        next_ += piece.empty() ? 1 : 0;
        return taken;
    }

  private:
    std::vector<std::string> pieces_;
    std::size_t next_ = 0;
};

} // namespace Quorvane::Qfis
