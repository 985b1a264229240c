#include <HostKit/Text.h>
#include <Services/Diagnostics.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

namespace tolvane {
namespace {

constexpr std::int64_t launchReportDays = 7;
constexpr Seconds secondsPerDay = 86'400;

/// At most `length` bytes from where `file` stands; what could be read until a failure.
std::string readFrom(int file, Bytes length) {
    std::string bytes;
    char piece[16'384];
    while (length > 0) {
        const auto wanted = static_cast<std::size_t>(std::min<Bytes>(length, sizeof piece));
        const ssize_t count = ::read(file, piece, wanted);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            break;
        }
        bytes.append(piece, static_cast<std::size_t>(count));
        length -= count;
    }
    return bytes;
}

std::optional<std::string> readTail(int file, Bytes maxBytes) {
    const off_t size = ::lseek(file, 0, SEEK_END);
    if (size < 0) {
        return std::nullopt;
    }
    const off_t start = maxBytes > 0 && size > maxBytes ? size - maxBytes : 0;
    ::lseek(file, start, SEEK_SET);
    return readFrom(file, size - start);
}

}

FileURL crashReportDirectory(const HostLayout::Locations& locations) {
    return locations.libraryDirectory.appending("Logs").appending("DiagnosticReports");
}

Diagnostics::Diagnostics(HostLayout::Locations locations, AppLog& log,
                         std::shared_ptr<const FileManager> files, Clock clock)
    : locations_(std::move(locations))
    , log_(log)
    , files_(std::move(files))
    , clock_(std::move(clock)) {}

std::vector<FileURL> Diagnostics::recentCrashReports(std::int64_t days) const {
    const FileURL folder = crashReportDirectory(locations_);
    const auto listing = files_->openDirectory(folder, {.isCancelled = {}, .skipsHidden = true});
    if (!listing) {
        return {};
    }
    const Date cutOff = clock_() - static_cast<Seconds>(days) * secondsPerDay;
    std::vector<FileURL> reports;
    for (std::size_t i = 0; i < (*listing)->count(); ++i) {
        const std::string_view name = (*listing)->name(i);
        if (!name.starts_with(crashReportPrefix)) {
            continue;
        }
        const auto values = (*listing)->values(i);
        if (values && values->contentModificationDate > cutOff) {
            reports.push_back(folder.appending(name));
        }
    }
    return reports;
}

std::string Diagnostics::logTail(Bytes maxBytes) const {
    if (maxBytes < 0) {
        std::fputs("tolvane: the tail of the log cannot have a negative length; stopping\n",
                   stderr);
        std::abort();
    }
    const int file = ::open(log_.fileURL().path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        return "No log yet.";
    }
    const std::optional<std::string> bytes = readTail(file, maxBytes);
    ::close(file);
    return bytes ? displayText(*bytes) : "No log yet.";
}

void Diagnostics::recordLaunch() const {
    const std::vector<FileURL> reports = recentCrashReports(launchReportDays);
    if (reports.empty()) {
        log_.write("launch no recent crash reports");
    }
    for (const FileURL& report : reports) {
        log_.write("launch found diagnostic report " + displayText(report.lastPathComponent()));
    }
}

}
