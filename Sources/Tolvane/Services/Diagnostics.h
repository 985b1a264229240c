#pragma once

#include <HostKit/Checked.h>
#include <HostKit/Date.h>
#include <HostKit/FileManager.h>
#include <HostKit/FileURL.h>
#include <HostKit/HostLayout.h>
#include <Services/AppLog.h>

#include <memory>
#include <string>
#include <vector>

namespace tolvane {

/// Where crash reports lie.
FileURL crashReportDirectory(const HostLayout::Locations& locations);

/// What a person can look up when something went wrong. Works on the caller's thread; reads the log
/// without waiting for lines on their way.
class Diagnostics {
  public:
    /// Crash reports bear names that begin with this.
    static constexpr std::string_view crashReportPrefix = "Tolvane";

    /// `log` must outlive this.
    Diagnostics(HostLayout::Locations locations, AppLog& log,
                std::shared_ptr<const FileManager> files, Clock clock = now);

    const FileURL& libraryDirectory() const { return locations_.libraryDirectory; }
    /// This application's crash reports that changed within the last `days` days, in listing order;
    /// none when they cannot be listed.
    std::vector<FileURL> recentCrashReports(std::int64_t days) const;
    /// The last `maxBytes` bytes of the log as text (0: all of it); "No log yet." when it cannot be
    /// opened. A negative limit ends the program.
    std::string logTail(Bytes maxBytes) const;
    /// Notes recent crash reports in the log; called once at launch.
    void recordLaunch() const;

  private:
    const HostLayout::Locations locations_;
    AppLog& log_;
    const std::shared_ptr<const FileManager> files_;
    const Clock clock_;
};

}
