#include "TreemapPicture.h"

#include "Output.h"
#include "ShownText.h"

#include <ArborviewKit/Treemap.h>
#include <Services/ByteFormat.h>
#include <Services/NotCounted.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <limits>

namespace tolvane {
namespace {

constexpr int longestSide = 100'000;
constexpr std::array<std::string_view, 10> palette{"#7fb3d5", "#f5b041", "#82c99d", "#d98880",
                                                   "#bb8fce", "#76d7c4", "#f7dc6f", "#aab7b8",
                                                   "#85929e", "#e59866"};
/// Of what no child stands for.
constexpr std::string_view restColour = "#d5d8dc";
constexpr std::int64_t restIndex = -1;
// Of the labels, in pixels.
constexpr double fontSize = 12;
constexpr double letterWidth = 7;
constexpr double lineHeight = 16;
constexpr double margin = 4;
/// A longer name cut to fewer letters tells nothing.
constexpr std::size_t fewestLetters = 6;

std::optional<int> side(std::string_view text) {
    int value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && stop == text.data() + text.size();
    return isNumber && value >= 1 && value <= longestSide ? std::optional(value) : std::nullopt;
}

/// Whether two code points that XML does not know begin here: U+FFFE and U+FFFF.
bool isNoncharacter(std::string_view text, std::size_t position) {
    const std::string_view bytes = text.substr(position, 3);
    return bytes == "\xEF\xBF\xBE" || bytes == "\xEF\xBF\xBF";
}

std::string escapedForXML(std::string_view text) {
    std::string escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        switch (text[i]) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        default:
            escaped += text[i];
        }
        if (isNoncharacter(text, i)) {
            escaped.back() = '?';
            i += 2;
        }
    }
    return escaped;
}

void drawLine(Output& out, std::string_view text, int line) {
    out.format(R"(<text x="{}" y="{}">{}</text>)", margin, margin + fontSize + line * lineHeight,
               escapedForXML(text));
}

/// The name and, below it, the size, as far as there is room for them.
void drawLabel(Output& out, const std::string& name, const std::string& size,
               const Rectangle& place) {
    const double room = (place.width - 2 * margin) / letterWidth;
    const double lines = (place.height - 2 * margin) / lineHeight;
    if (room < 1 || lines < 1) {
        return;
    }
    const auto letters = static_cast<std::size_t>(room);
    if (columnsOf(name) <= letters || letters >= fewestLetters) {
        drawLine(out, elidedInTheMiddle(name, letters), 0);
        if (lines >= 2 && columnsOf(size) <= letters) {
            drawLine(out, size, 1);
        }
    }
}

/// A picture of its own within the picture, so that no label leaves its cell.
void drawCell(Output& out, const TreemapCell& cell, Bytes whole) {
    const Rectangle& place = cell.rect;
    const std::string name = shownText(cell.label);
    const std::string size = ByteFormat::text(static_cast<Bytes>(cell.weight));
    const bool isRest = cell.colorIndex == restIndex;
    const std::string_view colour =
        isRest ? restColour : palette[static_cast<std::size_t>(cell.colorIndex) % palette.size()];
    out.format(R"(<svg x="{:.2f}" y="{:.2f}" width="{:.2f}" height="{:.2f}">)", place.x, place.y,
               place.width, place.height);
    out.format(R"(<title>{}, {} ({:.1f} %)</title><rect width="100%" height="100%" fill="{}"/>)",
               escapedForXML(name), size, 100 * cell.weight / static_cast<double>(whole), colour);
    drawLabel(out, name, size, place);
    out.append("</svg>\n");
}

/// Every child that takes space, and one entry for all that was counted and not kept: the areas
/// are shares of everything.
std::vector<TreemapEntry> entriesOf(const FileNode& folder) {
    constexpr Bytes smallest = 1;
    constexpr std::int64_t all = std::numeric_limits<std::int64_t>::max();
    std::vector<TreemapEntry> entries = treemapEntries(folder, smallest, all);
    if (folder.hiddenBytes() > 0) {
        entries.push_back({folder.id(), itemsNotKept(folder),
                           static_cast<double>(folder.hiddenBytes()), restIndex});
    }
    return entries;
}

void draw(Output& out, const FileNode& folder, const PictureSize& size) {
    out.format(R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="{0}" height="{1}" viewBox="0 0 {0} {1}" )"
               R"(font-family="sans-serif" font-size="{2}" stroke="white">
<style>text {{ stroke: none }}</style>
<rect width="{0}" height="{1}" fill="#eeeeee"/>
)",
               size.width, size.height, fontSize);
    const Rectangle area{0, 0, static_cast<double>(size.width), static_cast<double>(size.height)};
    const Bytes whole = folder.totalAllocatedSize();
    for (const TreemapCell& cell : TreemapLayout::squarified(entriesOf(folder), area)) {
        drawCell(out, cell, whole);
        out.flushIfLarge();
    }
    out.append("</svg>\n");
}

}

std::optional<PictureSize> pictureSize(std::string_view text) {
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<int> width = side(text.substr(0, cross));
    const std::optional<int> height = side(text.substr(cross + 1));
    return width && height ? std::optional(PictureSize{*width, *height}) : std::nullopt;
}

Result<void, SystemError> writeTreemap(const FileNode& folder, const PictureSize& size,
                                       const FileURL& file) {
    constexpr mode_t newFileMode = 0644;
    const int descriptor =
        ::open(file.path().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, newFileMode);
    if (descriptor < 0) {
        return tl::unexpected(SystemError::last());
    }
    Output out(descriptor);
    draw(out, folder, size);
    const Result<void, SystemError> written = out.flush();
    const bool isClosed = ::close(descriptor) == 0;
    return written && !isClosed ? tl::unexpected(SystemError::last()) : written;
}

}
