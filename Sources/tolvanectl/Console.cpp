#include "Console.h"

#include "ShownText.h"

#include <poll.h>
#include <unistd.h>

#include <cstdlib>

namespace tolvane {
namespace {

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool isScreen(int descriptor) {
    const char* terminal = std::getenv("TERM");
    const bool isDumb = terminal == nullptr || std::string_view(terminal) == "dumb";
    return ::isatty(descriptor) == 1 && !isDumb;
}

}

Console::Console()
    : hasScreen_(isScreen(STDOUT_FILENO))
    , usesStyles_(hasScreen_ && !isSet("NO_COLOR"))
    , out_(STDOUT_FILENO)
    , progress_(STDERR_FILENO) {}

std::string Console::styled(Style style, std::string_view text) const {
    if (!usesStyles_) {
        return std::string(text);
    }
    const std::string_view start = style == Style::strong ? "\x1b[1m" : "\x1b[2m";
    return fmt::format("{}{}\x1b[0m", start, text);
}

bool Console::canAsk() {
    return ::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1;
}

bool Console::waitForInput(int file) const {
    // In small steps, so that a cancellation is noticed.
    constexpr int milliseconds = 100;
    while (!isCancelled()) {
        pollfd waiting{.fd = file, .events = POLLIN, .revents = 0};
        if (::poll(&waiting, 1, milliseconds) != 0) {
            return true;
        }
    }
    return false;
}

bool Console::ask(std::string_view question) {
    progress_.clear();
    const std::string text = shownText(question) + " [y/N] ";
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
    if (!waitForInput(STDIN_FILENO)) {
        return false;
    }
    // A terminal gives whole lines.
    char line[256];
    const ssize_t count = ::read(STDIN_FILENO, line, sizeof line);
    return count > 0 && (line[0] == 'y' || line[0] == 'Y');
}

void Console::complain(std::string_view line) {
    progress_.clear();
    const std::string text = shownText(line) + '\n';
    [[maybe_unused]] const ssize_t count = ::write(STDERR_FILENO, text.data(), text.size());
}

Exit Console::fail(std::string_view description) {
    complain(description);
    return Exit::failed;
}

Exit Console::finish(Exit exit) {
    progress_.clear();
    const Result<void, SystemError> written = out_.flush();
    if (written) {
        return exit;
    }
    return fail("Could not write to standard output: " + written.error().message());
}

}
