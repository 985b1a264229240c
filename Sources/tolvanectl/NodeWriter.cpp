#include "NodeWriter.h"

#include "Base64.h"

#include <HostKit/Date.h>
#include <HostKit/Text.h>

#include <algorithm>
#include <array>

namespace tolvane {
namespace {

/// Whether the byte stands in a JSON string as it is and belongs to ASCII.
constexpr std::array<bool, 256> plainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t i = 0x20; i < 0x80; ++i) {
        plain[i] = i != '"' && i != '\\';
    }
    return plain;
}();

bool isPlain(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return plainBytes[static_cast<unsigned char>(byte)]; });
}

template <class Sink>
void escapeText(std::string_view text, Sink&& sink) {
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        if (plainBytes[value] || value >= 0x80) {
            sink({&byte, 1});
        } else if (byte == '"' || byte == '\\') {
            sink("\\");
            sink({&byte, 1});
        } else {
            sink(fmt::format("\\u{:04x}", value));
        }
    }
}

/// Hands on the bytes as they stand within quotes; tells whether that tells the bytes.
template <class Sink>
bool escape(std::string_view bytes, Sink&& sink) {
    if (isPlain(bytes)) {
        sink(bytes);
        return true;
    }
    const bool isText = isValidUTF8(bytes);
    escapeText(isText ? std::string(bytes) : displayText(bytes), sink);
    return isText;
}

}

void NodeWriter::writeTree(const FileNode& node, std::int64_t depth) {
    writeNode(node, nullptr, depth);
}

void NodeWriter::writeAlone(const FileNode& node) {
    constexpr std::int64_t withoutChildren = -1;
    writeNode(node, nullptr, withoutChildren);
}

NodeTotals NodeWriter::writeNode(const FileNode& node, const Place* parent, std::int64_t depth) {
    writeLocation(node, parent);
    writeFields(node);
    NodeTotals totals;
    if (depth > 0) {
        totals = writeChildren(node, depth);
    } else {
        totals = tolvane::totals(node);
    }
    writeTotals(totals);
    out_.flushIfLarge();
    return totals;
}

NodeTotals NodeWriter::writeChildren(const FileNode& node, std::int64_t depth) {
    NodeTotals totals = ownTotals(node);
    out_.append(R"(,"children":[)");
    if (!node.children().empty()) {
        const Place place = placeOf(node.url().path());
        std::string_view separator;
        for (const FileNode& child : node.children()) {
            out_.append(separator);
            addChild(totals, writeNode(child, &place, depth - 1));
            separator = ",";
        }
    }
    out_.append("]");
    return totals;
}

NodeWriter::Place NodeWriter::placeOf(const std::string& path) {
    Place place{path, {}, true};
    place.isText = escape(path, [&](std::string_view piece) { place.escapedPrefix.append(piece); });
    if (!path.ends_with('/')) {
        place.escapedPrefix += '/';
    }
    return place;
}

void NodeWriter::writeLocation(const FileNode& node, const Place* parent) {
    out_.append(R"({"id":")");
    out_.append(text(node.id()));
    out_.append(R"(",)");
    // A directory may be what a link led to and lie elsewhere; anything else lies in its parent.
    if (parent == nullptr || node.isDirectory()) {
        writePath("path", node.url().path());
    } else {
        out_.append(R"("path":")");
        out_.append(parent->escapedPrefix);
        const bool isText =
            escape(node.name(), [&](std::string_view piece) { out_.append(piece); });
        out_.append("\"");
        if (!isText || !parent->isText) {
            std::string path = parent->path;
            appendComponent(path, node.name());
            out_.format(R"(,"pathBytes":"{}")", Base64::encoded(path));
        }
    }
    out_.append(",");
    writePath("name", node.name());
}

void NodeWriter::writeFields(const FileNode& node) {
    out_.append(R"(,"kind":")");
    out_.append(rawValue(node.kind()));
    writeNumber(R"(","allocatedSize":)", node.allocatedSize());
    writeNumber(R"(,"logicalSize":)", node.logicalSize());
    writeBoolean(R"(,"isPurgeable":)", node.isPurgeable());
    writeDate(node.modified());
    writeNumber(R"(,"hiddenBytes":)", node.hiddenBytes());
    writeNumber(R"(,"hiddenFiles":)", node.hiddenFiles());
    writeNumber(R"(,"hiddenDirectories":)", node.hiddenDirectories());
    writeBoolean(R"(,"truncated":)", node.truncated());
}

void NodeWriter::writeTotals(const NodeTotals& totals) {
    writeNumber(R"(,"totalAllocatedSize":)", totals.totalAllocatedSize);
    writeNumber(R"(,"totalLogicalSize":)", totals.totalLogicalSize);
    writeNumber(R"(,"totalPurgeableSize":)", totals.totalPurgeableSize);
    writeNumber(R"(,"fileCount":)", totals.fileCount);
    writeNumber(R"(,"directoryCount":)", totals.directoryCount);
    writeNumber(R"(,"listedFileCount":)", totals.listedFileCount);
    writeNumber(R"(,"listedDirectoryCount":)", totals.listedDirectoryCount);
    out_.append("}");
}

void NodeWriter::writeNumber(std::string_view keyPart, std::int64_t value) {
    const fmt::format_int digits(value);
    out_.append(keyPart);
    out_.append({digits.data(), digits.size()});
}

void NodeWriter::writeBoolean(std::string_view keyPart, bool value) {
    out_.append(keyPart);
    out_.append(value ? "true" : "false");
}

void NodeWriter::writeDate(std::optional<Date> date) {
    if (!date) {
        out_.append(R"(,"modified":null)");
        return;
    }
    out_.append(R"(,"modified":")");
    out_.append(iso8601(*date));
    out_.append("\"");
}

void NodeWriter::writeText(std::string_view bytes) {
    out_.append("\"");
    escape(bytes, [&](std::string_view piece) { out_.append(piece); });
    out_.append("\"");
}

void NodeWriter::writePath(std::string_view key, std::string_view bytes) {
    out_.append("\"");
    out_.append(key);
    out_.append(R"(":")");
    const bool isText = escape(bytes, [&](std::string_view piece) { out_.append(piece); });
    out_.append("\"");
    if (!isText) {
        out_.format(R"(,"{}Bytes":"{}")", key, Base64::encoded(bytes));
    }
}

}
