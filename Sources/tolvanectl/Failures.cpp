#include "Failures.h"

#include <Services/CountFormat.h>

#include <algorithm>

namespace tolvane {

using CountFormat::counted;
using CountFormat::grouped;

void complainOfFailures(Console& console, const std::vector<ScanFailure>& failures) {
    constexpr std::size_t namedFailures = 5;
    if (failures.empty()) {
        return;
    }
    const auto count = static_cast<std::int64_t>(failures.size());
    console.complain(counted(count, "item") + " could not be read:");
    const std::size_t shown = std::min(namedFailures, failures.size());
    for (std::size_t i = 0; i < shown; ++i) {
        console.complain("  " + failures[i].path + ": " + failures[i].reason);
    }
    if (failures.size() > shown) {
        console.complain("  and " + grouped(static_cast<std::int64_t>(failures.size() - shown)) +
                         " more; --json lists all");
    }
}

void writeFailures(Output& out, NodeWriter& writer, const std::vector<ScanFailure>& failures) {
    out.append("[");
    std::string_view separator = "{";
    for (const ScanFailure& failure : failures) {
        out.append(separator);
        writer.writePath("path", failure.path);
        out.append(R"(,"reason":)");
        writer.writeText(failure.reason);
        out.append("}");
        out.flushIfLarge();
        separator = ",{";
    }
    out.append("]");
}

}
