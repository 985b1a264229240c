#include "ScanReport.h"

#include "Failures.h"
#include "NodeWriter.h"
#include "ShownText.h"
#include "Table.h"

#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>
#include <Services/NotCounted.h>

#include <algorithm>
#include <cmath>

namespace tolvane {
namespace {

using CountFormat::counted;
using CountFormat::grouped;

constexpr double barLength = 10;

void collectFiles(const FileNode& node, std::vector<const FileNode*>& files) {
    if (!node.isDirectory()) {
        files.push_back(&node);
    }
    for (const FileNode& child : node.children()) {
        collectFiles(child, files);
    }
}

struct Row {
    const FileNode* node;
    NodeTotals totals;
};

std::vector<Row> sortedChildren(const FileNode& node) {
    std::vector<Row> rows;
    rows.reserve(node.children().size());
    for (const FileNode& child : node.children()) {
        rows.push_back({&child, totals(child)});
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
        return a.totals.totalAllocatedSize > b.totals.totalAllocatedSize;
    });
    return rows;
}

/// What of `whole` a part takes, as "27.2 %" and as a bar.
std::pair<std::string, std::string> share(Bytes part, Bytes whole) {
    const double ratio = whole > 0 ? static_cast<double>(part) / static_cast<double>(whole) : 0;
    const std::string bar(static_cast<std::size_t>(std::lround(ratio * barLength)), '#');
    return {fmt::format("{:.1f} %", ratio * 100), bar};
}

/// The children of one folder, each followed by its own as deep as wanted.
class Rows {
  public:
    Rows(Table& table, Bytes whole)
        : table_(table)
        , whole_(whole) {}

    void add(const FileNode& folder, std::int64_t depth, const std::string& indent = "") {
        for (const Row& row : sortedChildren(folder)) {
            addRow(row, indent);
            if (depth > 1) {
                add(*row.node, depth - 1, indent + "  ");
            }
        }
        if (folder.hiddenFiles() > 0 || folder.hiddenDirectories() > 0) {
            table_.add(
                {"", "", "", "", "",
                 indent + itemsNotKept(folder) + ", " + ByteFormat::text(folder.hiddenBytes())});
        }
    }

  private:
    void addRow(const Row& row, const std::string& indent) {
        const auto [percent, bar] = share(row.totals.totalAllocatedSize, whole_);
        const bool isFolder = row.node->isDirectory();
        table_.add({ByteFormat::text(row.totals.totalAllocatedSize), percent, bar,
                    isFolder ? grouped(row.totals.fileCount) : "",
                    isFolder ? grouped(row.totals.directoryCount) : "",
                    indent + shownText(row.node->name()) + (isFolder ? "/" : "")});
    }

    Table& table_;
    const Bytes whole_;
};

void printTotals(Console& console, const ScanReport& report, const NodeTotals& totals) {
    Output& out = console.out();
    const std::string path = shownText(report.outcome.root.url().path());
    out.format("{}\n", console.styled(Style::strong, path));
    out.format("{} in {} and {}, {:.2f} s{}\n", ByteFormat::text(totals.totalAllocatedSize),
               counted(totals.fileCount, "file"), counted(totals.directoryCount, "folder"),
               report.seconds, report.isPartial() ? " (cancelled: a partial result)" : "");
    if (totals.totalPurgeableSize > 0) {
        out.format("{} of it can be made again by the system or its programs\n",
                   ByteFormat::text(totals.totalPurgeableSize));
    }
}

void printChildren(Console& console, const ScanReport& report, Bytes whole) {
    constexpr std::int64_t usualDepth = 1;
    const std::int64_t depth = report.depth.value_or(usualDepth);
    const FileNode& root = report.outcome.root;
    const bool isEmpty = root.children().empty() && root.hiddenFiles() == 0;
    if (depth < 1 || isEmpty) {
        return;
    }
    Table table({Alignment::right, Alignment::right, Alignment::left, Alignment::right,
                 Alignment::right, Alignment::left});
    table.add({"SIZE", "SHARE", "", "FILES", "FOLDERS", "NAME"});
    Rows(table, whole).add(root, depth);
    console.out().format("\n{}", table.text());
    if (root.truncated()) {
        console.out().format("\n{}\n",
                             console.styled(Style::faint,
                                            "Other items are counted but have no row: the scan met "
                                            "more than it keeps. Scan a folder inside, or raise "
                                            "--set maxRetainedDirectories, to see them."));
    }
}

void printLargestFiles(Console& console, const ScanReport& report) {
    if (!report.top) {
        return;
    }
    Table table({Alignment::right, Alignment::left});
    for (const FileNode* file : largestFiles(report.outcome.root, *report.top)) {
        table.add({ByteFormat::text(file->allocatedSize()), shownText(file->url().path())});
    }
    console.out().format("\nLargest files\n{}", table.text());
}

void printLeftOut(Console& console, const Host& host, const ScanReport& report) {
    std::string leftOut = "Not counted: ";
    for (const FileURL& url :
         notEntered(report.outcome.root.url(), report.options.excludedPathPrefixes, *host.files)) {
        leftOut += shownText(url.path()) + ", ";
    }
    if (report.options.excludesNoFollowMarker) {
        leftOut += "items named .nofollow, ";
    }
    const std::string line =
        fmt::format("{}folders deeper than {} levels", leftOut, grouped(report.options.maxDepth));
    console.out().format("\n{}\n", console.styled(Style::faint, line));
}

}

std::vector<const FileNode*> largestFiles(const FileNode& root, std::int64_t count) {
    std::vector<const FileNode*> files;
    collectFiles(root, files);
    std::stable_sort(files.begin(), files.end(), [](const FileNode* a, const FileNode* b) {
        return a->allocatedSize() > b->allocatedSize();
    });
    if (files.size() > static_cast<std::size_t>(count)) {
        files.resize(static_cast<std::size_t>(count));
    }
    return files;
}

void printAsText(Console& console, const Host& host, const ScanReport& report) {
    const NodeTotals all = totals(report.outcome.root);
    printTotals(console, report, all);
    printChildren(console, report, all.totalAllocatedSize);
    printLargestFiles(console, report);
    printLeftOut(console, host, report);
    complainOfFailures(console, report.failures);
}

void printAsJson(Output& out, const ScanReport& report) {
    NodeWriter writer(out);
    out.format(R"({{"outcome":"{}","root":)", report.isPartial() ? "cancelled" : "completed");
    writer.writeTree(report.outcome.root, report.depth.value_or(NodeWriter::unlimitedDepth));
    if (report.top) {
        out.append(R"(,"top":[)");
        std::string_view separator;
        for (const FileNode* file : largestFiles(report.outcome.root, *report.top)) {
            out.append(separator);
            writer.writeAlone(*file);
            separator = ",";
        }
        out.append("]");
    }
    out.append(R"(,"failures":)");
    writeFailures(out, writer, report.failures);
    out.format(R"(,"seconds":{:.3f}}})"
               "\n",
               report.seconds);
}

}
