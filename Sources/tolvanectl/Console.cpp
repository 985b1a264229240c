#include "Console.h"

#include "ShownText.h"

#include <unistd.h>

#include <cstdlib>

namespace tolvane {
namespace {

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool knowsStyles(int descriptor) {
    const char* terminal = std::getenv("TERM");
    const bool isDumb = terminal == nullptr || std::string_view(terminal) == "dumb";
    return ::isatty(descriptor) == 1 && !isDumb && !isSet("NO_COLOR");
}

}

Console::Console()
    : usesStyles_(knowsStyles(STDOUT_FILENO))
    , out_(STDOUT_FILENO)
    , progress_(STDERR_FILENO) {}

std::string Console::styled(Style style, std::string_view text) const {
    if (!usesStyles_) {
        return std::string(text);
    }
    const std::string_view start = style == Style::strong ? "\x1b[1m" : "\x1b[2m";
    return fmt::format("{}{}\x1b[0m", start, text);
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
