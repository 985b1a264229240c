#include "CheckReport.h"

#include "DuplicatesReport.h"
#include "Json.h"
#include "ShownText.h"
#include "Table.h"

#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

namespace tolvane {
namespace {

using enum Alignment;

void printSection(Console& console, const std::string& title, Bytes bytes) {
    console.out().format("\n{}\n",
                         console.styled(Style::strong, title + ", " + ByteFormat::text(bytes)));
}

void printJunk(Console& console, const BrightpassReport& report) {
    printSection(console, "Junk", report.junkBytes());
    Table table({right, left, left});
    for (const JunkCategory& category : report.junk) {
        table.add({category.exists() ? ByteFormat::text(category.bytes) : "nothing", category.name,
                   shownText(category.url.path())});
    }
    console.out().append(table.text());
}

void printApps(Console& console, const BrightpassReport& report) {
    printSection(console, "Leftovers of applications", report.leftoverBytes());
    Table table({right, left, left});
    for (const AppLeftoverSummary& summary : report.apps) {
        table.add({ByteFormat::text(summary.bytes()), shownText(summary.app.name),
                   CountFormat::counted(std::ssize(summary.leftovers), "item") + " of " +
                       shownText(summary.app.bundleID)});
    }
    console.out().append(table.text());
}

void printDuplicates(Console& console, const BrightpassReport& report) {
    if (!report.duplicates) {
        return;
    }
    const DuplicateScanResult& found = *report.duplicates;
    printSection(console, "Duplicates", report.duplicateBytes());
    const std::string what = found.groups.empty()
                                 ? "No files of equal content"
                                 : CountFormat::counted(found.duplicateFiles(), "file") + " in " +
                                       CountFormat::counted(std::ssize(found.groups), "group");
    console.out().format("{} below {}\n", what, shownText(found.root.path()));
}

}

void printAsText(Console& console, const BrightpassReport& report, bool isPartial) {
    console.out().format(
        "{} {:.1f} s{}\n",
        console.styled(Style::strong, "Up to " + ByteFormat::text(report.reclaimableBytes()) +
                                          " can be reclaimed;"),
        report.duration, isPartial ? " (cancelled: a partial result)" : "");
    printJunk(console, report);
    printApps(console, report);
    printDuplicates(console, report);
    console.out().format("\n{}\n",
                         console.styled(Style::faint, "The parts can overlap: what lies in two of "
                                                      "them counts twice."));
}

void printAsJson(Output& out, const BrightpassReport& report, bool isPartial) {
    out.format(R"({{"junk":{},"apps":{},"duplicates":)", listOf(report.junk).dump(),
               listOf(report.apps).dump());
    if (report.duplicates) {
        writeResult(out, *report.duplicates, isPartial);
    } else {
        out.append("null");
    }
    out.format(R"(,"generatedAt":"{}","duration":{},"junkBytes":{},"leftoverBytes":{},)"
               R"("duplicateBytes":{},"reclaimableBytes":{}}})"
               "\n",
               iso8601(report.generatedAt), JSON(report.duration).dump(), report.junkBytes(),
               report.leftoverBytes(), report.duplicateBytes(), report.reclaimableBytes());
}

}
