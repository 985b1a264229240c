#include <HostKit/Text.h>
#include <Services/AppLog.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

namespace tolvane {
namespace {

constexpr mode_t newFileMode = 0644;

void writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void emptyBeyond(Bytes limit, int file) {
    const off_t size = ::lseek(file, 0, SEEK_END);
    if (size > limit && ::ftruncate(file, 0) == 0) {
        ::lseek(file, 0, SEEK_SET);
    }
}

}

AppLog::AppLog(const HostLayout::Locations& locations, std::shared_ptr<const FileManager> files,
               Clock clock)
    : directory_(locations.libraryDirectory.appending("Logs").appending("Tolvane"))
    , fileURL_(directory_.appending("scan.log"))
    , files_(std::move(files))
    , clock_(std::move(clock)) {}

AppLog::~AppLog() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void AppLog::write(std::string message) {
    {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(std::move(message));
        startThread();
    }
    changed_.notify_all();
}

/// A system that has no thread left costs the line.
void AppLog::startThread() {
    if (thread_.joinable()) {
        return;
    }
    try {
        thread_ = std::thread([this] { writeLines(); });
    } catch (const std::system_error&) {
        waiting_.clear();
    }
}

void AppLog::flush() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_.empty(); });
}

void AppLog::writeLines() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return isEnding_ || !waiting_.empty(); });
        if (waiting_.empty()) {
            return;
        }
        const std::string& message = waiting_.front();
        lock.unlock();
        append(message);
        lock.lock();
        waiting_.pop_front();
        changed_.notify_all();
    }
}

void AppLog::append(const std::string& message) const {
    if (!isValidUTF8(message)) {
        return;
    }
    const std::string line = iso8601(clock_()) + ' ' + message + '\n';
    // Only costs the line when it fails, which opening then tells.
    static_cast<void>(files_->createDirectories(directory_));
    // A pipe in the file's place must not hold the thread up.
    const int file = ::open(fileURL_.path().c_str(),
                            O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, newFileMode);
    if (file < 0) {
        return;
    }
    emptyBeyond(maximumSize, file);
    writeAll(file, line);
    ::close(file);
}

}
