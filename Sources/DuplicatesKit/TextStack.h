#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tolvane {

/// Many short texts, packed one after another without a byte between them. What was kept last can
/// be given back first.
class TextStack {
  public:
    /// A copy that stays where it is until it is given back.
    std::string_view keep(std::string_view text);
    /// Gives back what was kept after `text`.
    void dropBehind(std::string_view text);

  private:
    struct Piece {
        std::unique_ptr<char[]> text;
        std::size_t size;
    };

    std::vector<Piece> pieces_;
    /// What is still free at the start of the last piece, which is filled from its end.
    std::size_t free_ = 0;
};

}
