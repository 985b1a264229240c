#include <HostKit/ChildProcess.h>
#include <HostKit/Lines.h>
#include <HostKit/Text.h>
#include <HostKit/linux/Descriptor.h>
#include <HostKit/linux/Spawn.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>
#include <vector>

namespace tolvane {
namespace {

using SteadyClock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// How long a cancelled run waits for its tool to end by itself.
constexpr milliseconds patience{100};
/// The longest time without a look at the limits of a run.
constexpr milliseconds longestPause{50};

/// C.UTF-8 instead of the user's locale: tools speak plain English and leave names as they are.
std::vector<std::string> plainEnvironment() {
    std::vector<std::string> variables{"LC_ALL=C.UTF-8"};
    for (char** entry = ::environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        if (!text.starts_with("LC_ALL=") && !text.starts_with("LANGUAGE=")) {
            variables.emplace_back(text);
        }
    }
    return variables;
}

void waitInBackground(pid_t pid) {
    try {
        std::thread([pid] {
            while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
            }
        }).detach();
    } catch (const std::system_error&) {
        // Without a thread to spare the child stays a zombie until this process ends.
    }
}

/// What ends a run before its tool does.
class Limits {
  public:
    explicit Limits(const ToolRun& run)
        : run_(run)
        , deadline_(run.timeout ? SteadyClock::now() + duration(*run.timeout)
                                : SteadyClock::time_point::max()) {}

    bool isCancelled() {
        if (run_.isCancelled && run_.isCancelled()) {
            status_ = ToolResult::cancelled;
        }
        return status_ == ToolResult::cancelled;
    }
    bool isReached() {
        if (!isCancelled() && SteadyClock::now() >= deadline_) {
            status_ = ToolResult::timedOut;
        }
        return status_ != 0;
    }

    /// How long nobody needs to ask.
    milliseconds pause() const {
        if (!run_.timeout) {
            return longestPause;
        }
        const auto left = std::chrono::ceil<milliseconds>(deadline_ - SteadyClock::now());
        return std::clamp(left, milliseconds(0), longestPause);
    }

    ToolResult result() const {
        if (status_ == ToolResult::cancelled) {
            return {status_, "", SystemError::cancelled().message()};
        }
        const auto seconds = static_cast<std::int64_t>(run_.timeout.value_or(0));
        return {status_, "", "Timed out after " + std::to_string(seconds) + " s"};
    }

  private:
    static SteadyClock::duration duration(Seconds seconds) {
        return std::chrono::duration_cast<SteadyClock::duration>(
            std::chrono::duration<Seconds>(seconds));
    }

    const ToolRun& run_;
    SteadyClock::time_point deadline_;
    std::int32_t status_ = 0;
};

/// The end of a pipe that what a child writes is read from.
class Stream {
  public:
    /// Makes the pipe; the other end is the child's.
    Result<Descriptor, SystemError> open() {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) {
            return tl::unexpected(SystemError::last());
        }
        descriptor_ = Descriptor(ends[0]);
        return Descriptor(ends[1]);
    }

    bool isOpen() const { return descriptor_.isOpen(); }
    /// Of a closed stream nothing is asked, as -1 tells `poll`.
    pollfd interest() const { return {.fd = descriptor_.number(), .events = POLLIN, .revents = 0}; }
    bool hasMore() const {
        pollfd waiting = interest();
        return ::poll(&waiting, 1, 0) > 0;
    }
    void read() {
        std::array<char, 65'536> piece{};
        const ssize_t count = ::read(descriptor_.number(), piece.data(), piece.size());
        if (count > 0) {
            bytes_.append(piece.data(), static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            descriptor_.reset();
        }
    }
    const std::string& bytes() const { return bytes_; }

  private:
    Descriptor descriptor_;
    std::string bytes_;
};

/// A started tool.
class Child {
  public:
    Result<void, SystemError> start(const Tool& tool) {
        const Result<Descriptor, SystemError> output = output_.open();
        const Result<Descriptor, SystemError> message =
            output ? message_.open() : tl::unexpected(output.error());
        if (!message) {
            return tl::unexpected(message.error());
        }
        Spawn spawn(0);
        spawn.connect(*output, STDOUT_FILENO);
        spawn.connect(*message, STDERR_FILENO);
        std::vector<std::string> environment = plainEnvironment();
        return spawn.start(tool, pointersTo(environment).data()).map([this](pid_t pid) {
            pid_ = pid;
        });
    }

    /// Reads both streams to their ends; false when a limit was reached before.
    bool readAll(Limits& limits) {
        while (output_.isOpen() || message_.isOpen()) {
            std::array<pollfd, 2> waiting{output_.interest(), message_.interest()};
            ::poll(waiting.data(), waiting.size(), static_cast<int>(limits.pause().count()));
            if (waiting[0].revents != 0) {
                output_.read();
            }
            if (waiting[1].revents != 0) {
                message_.read();
            }
            if (limits.isReached()) {
                return false;
            }
        }
        return true;
    }

    /// Reads what stands in both streams, whoever still holds them. A pipe holds no more than is
    /// read at once.
    void takeRest() {
        for (Stream* const stream : {&output_, &message_}) {
            if (stream->hasMore()) {
                stream->read();
            }
        }
    }

    /// Waits for the tool's end; false when a limit was reached before.
    bool awaitEnd(Limits& limits) {
        // A tool that has closed its streams is about to end.
        std::chrono::microseconds pause{50};
        while (!hasEnded()) {
            if (limits.isReached()) {
                return false;
            }
            std::this_thread::sleep_for(std::min<std::chrono::microseconds>(pause, limits.pause()));
            pause = std::min<std::chrono::microseconds>(pause * 2, longestPause);
        }
        return true;
    }

    void leave() {
        if (hasEnded()) {
            return;
        }
        ::kill(pid_, SIGTERM);
        waitInBackground(pid_);
    }

    void makeEnd() {
        if (hasEnded()) {
            return;
        }
        ::kill(pid_, SIGTERM);
        const auto end = SteadyClock::now() + patience;
        while (!hasEnded()) {
            if (SteadyClock::now() >= end) {
                ::kill(pid_, SIGKILL);
                waitInBackground(pid_);
                return;
            }
            std::this_thread::sleep_for(milliseconds(1));
        }
    }

    ToolResult result() const {
        if (status_ == ToolResult::notStarted) {
            return {status_, "", SystemError{ECHILD}.message()};
        }
        return {status_, displayText(output_.bytes()),
                std::string(trimmed(displayText(message_.bytes())))};
    }

  private:
    /// Asked for once, an end is known: from then on the number may be another process's.
    bool hasEnded() {
        if (hasEnded_) {
            return true;
        }
        int status = 0;
        const pid_t ended = ::waitpid(pid_, &status, WNOHANG);
        if (ended == 0 || (ended < 0 && errno == EINTR)) {
            return false;
        }
        if (ended < 0) {
            // Whoever started this process told it not to hear of its children's ends.
            status_ = ToolResult::notStarted;
        } else {
            status_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
        }
        hasEnded_ = true;
        return true;
    }

    pid_t pid_ = 0;
    bool hasEnded_ = false;
    Stream output_;
    Stream message_;
    std::int32_t status_ = 0;
};

/// Until the tool has ended and said all; false when a limit was reached before.
bool finish(Child& child, Pipes pipes, Limits& limits) {
    if (pipes == Pipes::readWhileRunning) {
        return child.readAll(limits) && child.awaitEnd(limits);
    }
    if (!child.awaitEnd(limits)) {
        return false;
    }
    if (pipes == Pipes::readAfterExit) {
        return child.readAll(limits);
    }
    child.takeRest();
    return true;
}

}

ToolResult run(const ToolRun& run) {
    Child child;
    Limits limits(run);
    // So that nobody is asked for a password that is no longer wanted.
    if (limits.isCancelled()) {
        return limits.result();
    }
    if (const Result<void, SystemError> started = child.start(run.tool); !started) {
        return {ToolResult::notStarted, "", started.error().message()};
    }
    if (finish(child, run.pipes, limits)) {
        return child.result();
    }
    ToolResult result = limits.result();
    if (result.status == ToolResult::cancelled) {
        child.makeEnd();
    } else {
        child.leave();
    }
    return result;
}

Result<void, SystemError> launchDetached(const Tool& tool) {
    return Spawn(POSIX_SPAWN_SETSID).start(tool, ::environ).map(waitInBackground);
}

bool isExecutableFile(const FileURL& url) {
    return ::faccessat(AT_FDCWD, url.path().c_str(), X_OK, AT_EACCESS) == 0 &&
           ::access((url.path() + "/").c_str(), F_OK) != 0;
}

}
