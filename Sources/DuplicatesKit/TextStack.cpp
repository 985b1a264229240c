#include <DuplicatesKit/TextStack.h>

#include <algorithm>
#include <functional>

namespace tolvane {
namespace {

constexpr std::size_t pieceSize = 65536;

}

std::string_view TextStack::keep(std::string_view text) {
    if (text.size() > free_) {
        free_ = std::max(pieceSize, text.size());
        pieces_.push_back({std::make_unique_for_overwrite<char[]>(free_), free_});
    }
    free_ -= text.size();
    char* const start = pieces_.back().text.get() + free_;
    std::ranges::copy(text, start);
    return {start, text.size()};
}

void TextStack::dropBehind(std::string_view text) {
    const auto holds = [&](const Piece& piece) {
        const char* const start = piece.text.get();
        return !std::less<>()(text.data(), start) && std::less<>()(text.data(), start + piece.size);
    };
    while (!pieces_.empty() && !holds(pieces_.back())) {
        pieces_.pop_back();
        free_ = 0;
    }
}

}
