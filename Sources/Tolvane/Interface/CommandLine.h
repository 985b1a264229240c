#pragma once

#include <optional>
#include <string>

namespace tolvane {

/// What the program was started with.
struct CommandLine {
    enum class Wish { window, help, version };

    Wish wish = Wish::window;
    /// As it was written, byte for byte; absent when none was named.
    std::optional<std::string> folder;
    /// What is wrong with the arguments, for people; empty when nothing is.
    std::string error;

    static constexpr const char* usage =
        "Usage: tolvane [FOLDER]\n"
        "Opens a window that shows what fills FOLDER, or lets you choose one.\n"
        "\n"
        "  -h, --help  Print this and exit\n"
        "  --version   Print the version and exit\n";

    /// `arguments` as `main` got them, the program's name first.
    static CommandLine parse(int count, const char* const* arguments);
};

}
