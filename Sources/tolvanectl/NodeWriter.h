#pragma once

#include "Output.h"

#include <ScanKit/FileNode.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace tolvane {

/// Prints scanned nodes as JSON while it walks the tree: hundreds of thousands of them, so without
/// a document in memory and with little work for each.
class NodeWriter {
  public:
    static constexpr std::int64_t unlimitedDepth = std::numeric_limits<std::int64_t>::max();

    explicit NodeWriter(Output& out)
        : out_(out) {}

    /// The node with so many levels of children; deeper ones are counted and not printed. A node
    /// whose children would lie too deep has no key for them.
    void writeTree(const FileNode& node, std::int64_t depth);
    /// The node without a key for children.
    void writeAlone(const FileNode& node);

    /// A string with its quotes; U+FFFD for bytes that are not UTF-8.
    void writeText(std::string_view bytes);
    /// `"key":` and the text; beside it the raw bytes where the text does not tell them.
    void writePath(std::string_view key, std::string_view bytes);

  private:
    /// A folder whose children are being printed.
    struct Place {
        std::string path;
        /// As it stands within quotes, a separator behind it.
        std::string escapedPrefix;
        bool isText = true;
    };

    static Place placeOf(const std::string& path);
    NodeTotals writeNode(const FileNode& node, const Place* parent, std::int64_t depth);
    NodeTotals writeChildren(const FileNode& node, std::int64_t depth);
    void writeLocation(const FileNode& node, const Place* parent);
    void writeFields(const FileNode& node);
    void writeTotals(const NodeTotals& totals);
    void writeNumber(std::string_view keyPart, std::int64_t value);
    void writeBoolean(std::string_view keyPart, bool value);
    void writeDate(std::optional<Date> date);

    Output& out_;
};

}
