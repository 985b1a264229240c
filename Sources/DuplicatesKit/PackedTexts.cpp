#include <DuplicatesKit/PackedTexts.h>

#include <algorithm>

namespace tolvane {
namespace {

constexpr std::size_t pieceSize = 65536;

}

std::string_view PackedTexts::keep(std::string_view text) {
    if (text.size() > free_) {
        free_ = std::max(pieceSize, text.size());
        pieces_.push_back(std::make_unique_for_overwrite<char[]>(free_));
    }
    free_ -= text.size();
    char* const start = pieces_.back().get() + free_;
    std::ranges::copy(text, start);
    return {start, text.size()};
}

}
