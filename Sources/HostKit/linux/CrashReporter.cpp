#include <HostKit/CrashReporter.h>

#include <cxxabi.h>
#include <execinfo.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <exception>
#include <typeinfo>

// Whatever a handler calls must be async-signal-safe: no allocation, no lock, no stdio. So text is
// put together in fixed buffers, and the calendar is that of <chrono>, which only calculates.

namespace tolvane::CrashReporter {
namespace {

constexpr std::size_t stackSize = 65'536;
constexpr int maximumFrames = 96;

struct FatalSignal {
    int number;
    std::string_view name;
};
constexpr std::array<FatalSignal, 7> fatalSignals{{{SIGSEGV, "SIGSEGV"},
                                                   {SIGBUS, "SIGBUS"},
                                                   {SIGFPE, "SIGFPE"},
                                                   {SIGILL, "SIGILL"},
                                                   {SIGABRT, "SIGABRT"},
                                                   {SIGSYS, "SIGSYS"},
                                                   {SIGTRAP, "SIGTRAP"}}};

/// Text in a fixed buffer; what does not fit is cut off.
template <std::size_t capacity>
class FixedText {
  public:
    void append(std::string_view text) {
        const std::size_t count = std::min(text.size(), capacity - size_);
        std::memcpy(bytes_ + size_, text.data(), count);
        size_ += count;
        bytes_[size_] = '\0';
    }
    void appendNumber(std::uint64_t value, unsigned base = 10, int width = 1) {
        char digits[24];
        char* first = std::end(digits);
        for (; value > 0 || width > 0; value /= base, --width) {
            *--first = "0123456789abcdef"[value % base];
        }
        append({first, static_cast<std::size_t>(std::end(digits) - first)});
    }
    void cut(std::size_t size) {
        size_ = size;
        bytes_[size_] = '\0';
    }
    char* bytes() { return bytes_; }
    std::string_view view() const { return {bytes_, size_}; }

  private:
    char bytes_[capacity + 1] = {};
    std::size_t size_ = 0;
};

/// What the handlers work with; they can be handed nothing, so it has to be global.
struct State {
    FixedText<PATH_MAX + 64> path;
    std::size_t folderLength = 0;
    FixedText<64> version;
    /// What an uncaught exception said.
    FixedText<1024> exception;
    std::array<struct sigaction, fatalSignals.size()> previousActions{};
    std::terminate_handler previousTerminate = nullptr;
    /// The thread that is writing the report; 0 while none is.
    std::atomic<pid_t> reportingThread{0};
    alignas(16) std::byte mainStack[stackSize];
};
State state;

template <std::size_t capacity>
void appendDate(FixedText<capacity>& text, time_t seconds, std::string_view beforeTime,
                std::string_view inTime) {
    const std::chrono::sys_seconds date{std::chrono::seconds{seconds}};
    const auto midnight = std::chrono::floor<std::chrono::days>(date);
    const std::chrono::year_month_day day{midnight};
    const std::chrono::hh_mm_ss time{date - midnight};
    const auto number = [](auto part) { return static_cast<std::uint64_t>(part); };
    text.appendNumber(number(static_cast<int>(day.year())), 10, 4);
    text.append("-");
    text.appendNumber(number(static_cast<unsigned>(day.month())), 10, 2);
    text.append("-");
    text.appendNumber(number(static_cast<unsigned>(day.day())), 10, 2);
    text.append(beforeTime);
    text.appendNumber(number(time.hours().count()), 10, 2);
    text.append(inTime);
    text.appendNumber(number(time.minutes().count()), 10, 2);
    text.append(inTime);
    text.appendNumber(number(time.seconds().count()), 10, 2);
}

int openReport() {
    // A second crash within the second joins the first one's report.
    return ::open(state.path.bytes(), O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_CLOEXEC, 0600);
}

void makeFolders() {
    char* path = state.path.bytes();
    for (std::size_t i = 1; i <= state.folderLength; ++i) {
        if (path[i] == '/') {
            path[i] = '\0';
            ::mkdir(path, 0755);
            path[i] = '/';
        }
    }
}

int createReport(time_t seconds) {
    state.path.cut(state.folderLength);
    state.path.append("/Tolvane-");
    appendDate(state.path, seconds, "-", "");
    state.path.append(".crash");
    const int file = openReport();
    if (file >= 0 || errno != ENOENT) {
        return file;
    }
    makeFolders();
    return openReport();
}

std::string_view signalName(int number) {
    for (const FatalSignal& known : fatalSignals) {
        if (known.number == number) {
            return known.name;
        }
    }
    return "?";
}

void writeCause(int file, int number, const siginfo_t& info, time_t seconds) {
    FixedText<2048> text;
    text.append("Tolvane ");
    text.append(state.version.view());
    text.append("\nDate: ");
    appendDate(text, seconds, "T", ":");
    text.append("Z\nProcess: ");
    text.appendNumber(static_cast<std::uint64_t>(::getpid()));
    text.append("\nSignal: ");
    text.appendNumber(static_cast<std::uint64_t>(number));
    text.append(" ");
    text.append(signalName(number));
    if (info.si_code > 0) {
        text.append(" at address 0x");
        text.appendNumber(reinterpret_cast<std::uintptr_t>(info.si_addr), 16);
    }
    if (!state.exception.view().empty()) {
        text.append("\nException: ");
        text.append(state.exception.view());
    }
    text.append("\n\nBack trace:\n");
    [[maybe_unused]] const ssize_t count = ::write(file, text.view().data(), text.view().size());
}

void writeReport(int number, const siginfo_t& info) {
    timespec time{};
    ::clock_gettime(CLOCK_REALTIME, &time);
    const int file = createReport(time.tv_sec);
    if (file < 0) {
        return;
    }
    writeCause(file, number, info, time.tv_sec);
    void* frames[maximumFrames];
    ::backtrace_symbols_fd(frames, ::backtrace(frames, maximumFrames), file);
    ::close(file);
}

void restorePreviousActions() {
    for (std::size_t i = 0; i < fatalSignals.size(); ++i) {
        ::sigaction(fatalSignals[i].number, &state.previousActions[i], nullptr);
    }
}

void handle(int number, siginfo_t* info, void*) {
    pid_t none = 0;
    if (state.reportingThread.compare_exchange_strong(none, ::gettid())) {
        writeReport(number, *info);
    } else if (none != ::gettid()) {
        // Another thread is writing; the process ends when it is done.
        while (true) {
            ::pause();
        }
    }
    // Also reached by a crash of the report itself. The signal is blocked until this returns and is
    // then delivered where the program stood.
    restorePreviousActions();
    ::raise(number);
}

/// Runs outside any handler, so it may do what it likes but lose the exception.
[[noreturn]] void terminate() {
    if (const std::exception_ptr current = std::current_exception()) {
        try {
            std::rethrow_exception(current);
        } catch (const std::exception& error) {
            state.exception.append(error.what());
        } catch (...) {
            const std::type_info* type = abi::__cxa_current_exception_type();
            state.exception.append(type != nullptr ? type->name() : "unknown");
        }
    }
    state.previousTerminate();
    std::abort();
}

void useStack(std::byte* bytes) {
    const stack_t stack{.ss_sp = bytes, .ss_flags = 0, .ss_size = stackSize};
    ::sigaltstack(&stack, nullptr);
}

}

Result<void, SystemError> install(const FileURL& folder, std::string_view version) {
    if (folder.path().size() >= PATH_MAX - 64) {
        return tl::unexpected(SystemError{ENAMETOOLONG});
    }
    state.path.append(folder.path());
    state.folderLength = folder.path().size();
    state.version.append(version);
    useStack(state.mainStack);
    // The first call loads a library, which a handler may not.
    void* frame = nullptr;
    ::backtrace(&frame, 1);

    struct sigaction action {};
    action.sa_sigaction = handle;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    ::sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < fatalSignals.size(); ++i) {
        ::sigaction(fatalSignals[i].number, &action, &state.previousActions[i]);
    }
    state.previousTerminate = std::set_terminate(terminate);
    return {};
}

ThreadStack::ThreadStack()
    : bytes_(std::make_unique_for_overwrite<std::byte[]>(stackSize)) {
    useStack(bytes_.get());
}

ThreadStack::~ThreadStack() {
    const stack_t none{.ss_sp = nullptr, .ss_flags = SS_DISABLE, .ss_size = 0};
    ::sigaltstack(&none, nullptr);
}

}
