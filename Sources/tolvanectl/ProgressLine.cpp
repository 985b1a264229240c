#include "ProgressLine.h"

#include "ShownText.h"

#include <HostKit/Terminal.h>

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>

namespace tolvane {
namespace {

constexpr Seconds interval = 0.1;
constexpr std::size_t usualWidth = 80;

std::string clockText(Seconds seconds) {
    const auto whole = static_cast<std::int64_t>(seconds);
    return fmt::format("{}:{:02}", whole / 60, whole % 60);
}

}

ProgressLine::ProgressLine(int descriptor)
    : descriptor_(descriptor)
    , isShown_(::isatty(descriptor) == 1) {}

bool ProgressLine::isDue() {
    return isShown_ && throttle_.allow(interval);
}

void ProgressLine::show(std::string_view facts, std::string_view path) {
    if (!isShown_) {
        return;
    }
    const std::size_t width = usableWidth();
    std::string line = fmt::format("{}  {}", facts, clockText(elapsed()));
    const std::size_t used = columnsOf(line) + 2;
    if (used < width) {
        line += "  " + elidedInTheMiddle(shownText(path), width - used);
    }
    replace(elidedInTheMiddle(line, width));
}

void ProgressLine::clear() {
    if (shownColumns_ > 0) {
        replace("");
    }
}

std::size_t ProgressLine::usableWidth() const {
    // The last column stays free: some terminals wrap when it is used.
    return terminalWidth(descriptor_).value_or(usualWidth) - 1;
}

void ProgressLine::replace(const std::string& text) {
    const std::size_t columns = columnsOf(text);
    // Blanks beyond the edge of a terminal that became narrower would end on the next line.
    const std::size_t shown = std::min(shownColumns_, usableWidth());
    const std::size_t leftOver = shown - std::min(columns, shown);
    // Blanks and not an escape sequence: every terminal understands them.
    const std::string line = "\r" + text + std::string(leftOver, ' ') + (text.empty() ? "\r" : "");
    shownColumns_ = columns;
    [[maybe_unused]] const ssize_t count = ::write(descriptor_, line.data(), line.size());
}

}
