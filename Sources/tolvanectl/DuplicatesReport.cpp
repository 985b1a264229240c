#include "DuplicatesReport.h"

#include "Failures.h"
#include "NodeWriter.h"
#include "ShownText.h"

#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>
#include <Services/NotCounted.h>

#include <algorithm>

namespace tolvane {
namespace {

using CountFormat::counted;
using CountFormat::grouped;

/// What is to be said of the file at `position` of its group.
std::string remark(const DuplicatesReport& report, const DuplicateGroup& group,
                   const std::vector<std::size_t>& firstNames, std::size_t position) {
    std::string text;
    if (const std::size_t first = firstNames[position]; first != position) {
        const std::string of = first == 0 ? "" : " as " + shownText(group.files[first].id());
        text += "  (same file" + of + ", frees nothing)";
    }
    if (report.isUncertain(group.files[position])) {
        text += "  (changed or not readable while it was compared)";
    }
    return text;
}

void printGroup(Console& console, const DuplicatesReport& report, const DuplicateGroup& group) {
    Output& out = console.out();
    const std::string sizes =
        fmt::format("{} files of {}, {} can be freed", grouped(std::ssize(group.files)),
                    ByteFormat::text(group.size), ByteFormat::text(group.reclaimableBytes()));
    out.format("\n{}\n", console.styled(Style::strong, sizes));
    const std::vector<std::size_t> firstNames = group.firstNames();
    for (std::size_t position = 0; position < group.files.size(); ++position) {
        out.format("  {}  {}{}\n", position == 0 ? "keep" : "copy",
                   shownText(group.files[position].id()),
                   remark(report, group, firstNames, position));
        out.flushIfLarge();
    }
}

void printTotals(Console& console, const DuplicatesReport& report) {
    const DuplicateScanResult& result = report.result;
    Output& out = console.out();
    out.format("{}\n", console.styled(Style::strong, shownText(result.root.path())));
    if (result.groups.empty()) {
        out.append("No files of equal content");
    } else {
        out.format("{} in {}, {} can be freed", counted(result.duplicateFiles(), "file"),
                   counted(std::ssize(result.groups), "group"),
                   ByteFormat::text(result.reclaimableBytes()));
    }
    out.format("; {} looked at, {} compared, {:.2f} s{}\n", counted(result.scannedFiles, "file"),
               grouped(result.candidateFiles), report.seconds,
               report.isPartial ? " (cancelled: a partial result)" : "");
}

void printLeftOut(Console& console, const Host& host, const DuplicatesReport& report) {
    std::string line = "Left out: links, the contents of packages";
    if (report.options.skipsHiddenFiles) {
        line += ", hidden items";
    }
    if (report.options.minimumSize > 0) {
        line += ", files below " + ByteFormat::exactText(report.options.minimumSize);
    }
    for (const FileURL& url :
         notEntered(report.result.root, report.options.excludedPrefixes, *host.files)) {
        line += ", " + shownText(url.path());
    }
    console.out().format("\n{}\n", console.styled(Style::faint, line));
}

void writeFile(Output& out, NodeWriter& writer, const DuplicateFile& file) {
    out.append("{");
    writer.writePath("path", file.id());
    out.format(R"(,"size":{},"modified":)", file.size);
    if (file.modified) {
        out.format(R"("{}"}})", iso8601(*file.modified));
    } else {
        out.append("null}");
    }
    out.flushIfLarge();
}

void writeGroup(Output& out, NodeWriter& writer, const DuplicateGroup& group) {
    out.format(R"({{"id":"{}","hash":"{}","size":{},"wastedBytes":{},"files":[)", group.id(),
               group.hash(), group.size, group.wastedBytes());
    std::string_view separator;
    for (const DuplicateFile& file : group.files) {
        out.append(separator);
        writeFile(out, writer, file);
        separator = ",";
    }
    out.append("]}");
}

}

bool DuplicatesReport::isUncertain(const DuplicateFile& file) const {
    return std::ranges::binary_search(uncertain, file.id());
}

std::vector<const DuplicateFile*> removableCopies(const DuplicatesReport& report) {
    std::vector<const DuplicateFile*> copies;
    for (const DuplicateGroup& group : report.result.groups) {
        if (report.isUncertain(group.files.front())) {
            continue;
        }
        const std::vector<std::size_t> firstNames = group.firstNames();
        for (std::size_t position = 1; position < group.files.size(); ++position) {
            const DuplicateFile& file = group.files[position];
            if (firstNames[position] != 0 && !report.isUncertain(file)) {
                copies.push_back(&file);
            }
        }
    }
    return copies;
}

void writeResult(Output& out, const DuplicateScanResult& result, bool isPartial) {
    NodeWriter writer(out);
    out.append("{");
    writer.writePath("root", result.root.path());
    out.append(R"(,"groups":[)");
    std::string_view separator;
    for (const DuplicateGroup& group : result.groups) {
        out.append(separator);
        writeGroup(out, writer, group);
        separator = ",";
    }
    out.format(
        R"(],"scannedFiles":{},"candidateFiles":{},"wastedBytes":{},"duplicateFiles":{},"errors":)",
        result.scannedFiles, result.candidateFiles, result.wastedBytes(), result.duplicateFiles());
    writeFailures(out, writer, result.errors);
    out.format(R"(,"cancelled":{}}})", isPartial);
}

void printAsText(Console& console, const Host& host, const DuplicatesReport& report) {
    printTotals(console, report);
    for (const DuplicateGroup& group : report.result.groups) {
        printGroup(console, report, group);
    }
    printLeftOut(console, host, report);
}

void printAsJson(Output& out, const DuplicatesReport& report) {
    writeResult(out, report.result, report.isPartial);
    out.append("\n");
}

void printCopies(Output& out, const DuplicatesReport& report) {
    for (const DuplicateFile* copy : removableCopies(report)) {
        out.append(copy->id());
        out.append(std::string_view("\0", 1));
        out.flushIfLarge();
    }
}

void complain(Console& console, const DuplicatesReport& report) {
    complainOfFailures(console, report.result.errors);
    for (const std::string& path : report.uncertain) {
        console.complain("Changed or not readable while it was compared: " + path);
    }
}

}
