#include "Arguments.h"
#include "Command.h"

#include <HostKit/CrashReporter.h>
#include <Services/Diagnostics.h>
#include <Services/SignalWatch.h>

#include <CLI/CLI.hpp>
#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <exception>
#include <sstream>

namespace tolvane {
namespace {

struct Entry {
    const char* name;
    const char* description;
    std::unique_ptr<Command> (*make)();
};

constexpr std::array<Entry, 14> commands{{
    {"scan", "Show what fills a folder", makeScanCommand},
    {"size", "Measure single items", makeSizeCommand},
    {"access", "Tell whether everything may be read", makeAccessCommand},
    {"duplicates", "Find files of equal content", makeDuplicatesCommand},
    {"apps", "List the installed applications", makeAppsCommand},
    {"leftovers", "Show what an application leaves behind", makeLeftoversCommand},
    {"check", "Measure what could be reclaimed", makeCheckCommand},
    {"trash", "Move items to the Trash", makeTrashCommand},
    {"restore", "Put back what trash moved", makeRestoreCommand},
    {"ports", "List the processes that listen on the network", makePortsCommand},
    {"kill", "End the processes that listen on a port", makeKillCommand},
    {"performance", "Show how memory and disk are used and what starts by itself",
     makePerformanceCommand},
    {"maintenance", "Empty caches and rebuild tables of the system", makeMaintenanceCommand},
    {"log", "Show the end of the application's log", makeLogCommand},
}};

/// A file opened later must not become a standard stream. A missing standard output stays one that
/// cannot be written to.
void fillMissingStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) < 0) {
            ::open("/dev/null", O_RDONLY);
        }
    }
}

/// Asked before anything is moved whose receipts would then be lost.
bool isWritable(int stream) {
    const int flags = ::fcntl(stream, F_GETFL);
    return flags >= 0 && (flags & O_ACCMODE) != O_RDONLY;
}

void addCommonOptions(CLI::App& app, Console& console) {
    app.set_version_flag("--version", "tolvanectl " TOLVANE_VERSION, "Print the version and exit");
    app.set_help_flag("--help,-h", "Print this and exit");
    app.add_flag("--json", console.writesJSON(), "Print one JSON document");
}

/// Why the arguments name no command.
std::string commandError(const CLI::App& app) {
    const std::vector<std::string> unknown = app.remaining();
    if (unknown.empty()) {
        return "A command is required";
    }
    const bool isOption = unknown.front().starts_with('-');
    return fmt::format("There is no {} \"{}\"", isOption ? "option" : "command", unknown.front());
}

/// Help and version are printed; anything else is a complaint.
Exit answer(const CLI::App& app, const CLI::ParseError& error, Console& console) {
    const auto lacksArgument = static_cast<int>(CLI::ExitCodes::RequiredError);
    if (error.get_exit_code() == lacksArgument && app.get_subcommands().empty()) {
        console.complain(commandError(app));
        console.complain("Run with --help for more information.");
        return Exit::wrongCommandLine;
    }
    std::ostringstream out;
    std::ostringstream complaint;
    const bool isAnswer = app.exit(error, out, complaint) == 0;
    console.out().append(out.str());
    std::istringstream lines(complaint.str());
    for (std::string line; std::getline(lines, line);) {
        console.complain(line);
    }
    return isAnswer ? console.finish(Exit::done) : Exit::wrongCommandLine;
}

Exit runChosen(const CLI::App& app, std::vector<std::unique_ptr<Command>>& made, Console& console) {
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (app.got_subcommand(commands[i].name)) {
            if (!isWritable(STDOUT_FILENO)) {
                return console.fail("Standard output is not open for writing");
            }
            const Host host = Host::current();
            // Without it a crash is only told by the system.
            static_cast<void>(CrashReporter::install(crashReportDirectory(host.layout.locations),
                                                     TOLVANE_VERSION));
            return console.finish(made[i]->run(console, host));
        }
    }
    return Exit::wrongCommandLine;
}

/// Who asks a second time wants no more of it.
void cancelOrEnd(CancellationFlag& cancellation) {
    if (cancellation.isCancelled()) {
        ::_exit(static_cast<int>(Exit::cancelled));
    }
    cancellation.cancel();
}

Exit run(int argumentCount, char** arguments) {
    Console console;
    const SignalWatch watch([&console] { cancelOrEnd(console.cancellation()); });
    CLI::App app("Shows what fills a disk and reclaims it safely", "tolvanectl");
    app.require_subcommand(1);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("REQUIRED", "(required)");
    addCommonOptions(app, console);
    std::vector<std::unique_ptr<Command>> made;
    for (const Entry& entry : commands) {
        CLI::App* command = app.add_subcommand(entry.name, entry.description);
        command->group("Commands");
        addCommonOptions(*command, console);
        made.push_back(entry.make());
        made.back()->declare(*command);
    }
    try {
        std::vector<std::string> plain = plainArguments(argumentCount, arguments);
        std::reverse(plain.begin(), plain.end()); // the parser takes them from the back
        app.parse(std::move(plain));
    } catch (const CLI::ParseError& error) {
        return answer(app, error, console);
    }
    return runChosen(app, made, console);
}

}
}

int main(int argumentCount, char** arguments) {
    tolvane::fillMissingStreams();
    std::signal(SIGPIPE, SIG_IGN);
    // Ignored, it would keep the ends of our children from us.
    std::signal(SIGCHLD, SIG_DFL);
    try {
        return static_cast<int>(tolvane::run(argumentCount, arguments));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return static_cast<int>(tolvane::Exit::failed);
    }
}
