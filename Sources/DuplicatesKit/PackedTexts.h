#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tolvane {

/// Many short texts, packed one after another without a byte between them.
class PackedTexts {
  public:
    /// A copy that stays where it is as long as this.
    std::string_view keep(std::string_view text);

  private:
    std::vector<std::unique_ptr<char[]>> pieces_;
    /// What is still free at the start of the last piece, which is filled from its end.
    std::size_t free_ = 0;
};

}
