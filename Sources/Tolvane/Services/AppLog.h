#pragma once

#include <HostKit/Date.h>
#include <HostKit/FileManager.h>
#include <HostKit/FileURL.h>
#include <HostKit/HostLayout.h>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace tolvane {

/// The one diagnostic log: a text file of lines "2026-11-15T20:14:26Z message". Made once in the
/// program's entry and handed on. Lines are appended whole, in the order of the calls, by a thread
/// that starts with the first of them; no failure is ever reported.
class AppLog {
  public:
    /// Beyond this the next line empties the file first.
    static constexpr Bytes maximumSize = 524'288;

    /// The log lies in "Logs/Tolvane" of the library folder; the folder is made with the first
    /// line.
    AppLog(const HostLayout::Locations& locations, std::shared_ptr<const FileManager> files,
           Clock clock = now);
    /// Writes what is still waiting.
    ~AppLog();
    AppLog(const AppLog&) = delete;
    AppLog& operator=(const AppLog&) = delete;

    const FileURL& directory() const { return directory_; }
    const FileURL& fileURL() const { return fileURL_; }

    /// Returns at once. Not escaped; a message that is not UTF-8 is dropped, so paths go through
    /// `displayText`. Callable from any thread.
    void write(std::string message);
    /// Waits until every line of the calls before this one has been dealt with.
    void flush();

  private:
    void startThread();
    void writeLines();
    void append(const std::string& message) const;

    const FileURL directory_;
    const FileURL fileURL_;
    const std::shared_ptr<const FileManager> files_;
    const Clock clock_;

    std::mutex mutex_;
    std::condition_variable changed_;
    /// The message being written stays in front until it is on disk.
    std::deque<std::string> waiting_;
    bool isEnding_ = false;
    std::thread thread_;
};

}
