#include "Arguments.h"
#include "Command.h"
#include "Json.h"

#include <CleanupKit/Cleaner.h>
#include <HostKit/Text.h>
#include <HostKit/Trash.h>

#include <CLI/CLI.hpp>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace tolvane {
namespace {

/// Everything until the end of the file or a cancellation.
Result<std::string, SystemError> readAll(int file, const Console& console) {
    std::string content;
    char piece[65'536];
    while (console.waitForInput(file)) {
        const ssize_t count = ::read(file, piece, sizeof piece);
        if (count > 0) {
            content.append(piece, static_cast<std::size_t>(count));
        } else if (count == 0) {
            return content;
        } else if (errno != EINTR && errno != EAGAIN) {
            return tl::unexpected(SystemError::last());
        }
    }
    return tl::unexpected(SystemError::cancelled());
}

Result<std::string, SystemError> readFile(const std::string& path, const Console& console) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return tl::unexpected(SystemError::last());
    }
    Result<std::string, SystemError> content = readAll(file, console);
    ::close(file);
    return content;
}

class RestoreCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("FILE", file_, "What trash --json printed; standard input when absent")
            ->type_name("")
            ->check(pathError);
    }

    Exit run(Console& console, const Host& host) override {
        const Result<std::string, SystemError> document =
            file_.empty() ? readAll(STDIN_FILENO, console) : readFile(file_, console);
        if (!document) {
            return document.error().isCancelled()
                       ? Exit::cancelled
                       : console.fail("Could not read " +
                                      (file_.empty() ? "standard input" : file_) + ": " +
                                      document.error().message());
        }
        const Result<std::vector<RemovalReceipt>, std::string> parsed = receipts(*document);
        if (!parsed) {
            return console.fail(parsed.error());
        }
        const Cleaner cleaner(ProtectionPolicy(host.layout.protection), host.layout.locations.home,
                              host.files, systemTrash(host.layout));
        return tell(console, parsed->size(), cleaner.restore(*parsed));
    }

  private:
    static Exit tell(Console& console, std::size_t receipts,
                     const std::vector<RemovalError>& errors) {
        const std::size_t restored = receipts - errors.size();
        if (console.writesJSON()) {
            JSON descriptions = JSON::array();
            for (const RemovalError& error : errors) {
                descriptions.push_back(displayText(error.description()));
            }
            print(console.out(), JSON{{"restored", restored},
                                      {"failed", errors.size()},
                                      {"errors", std::move(descriptions)}});
        } else {
            console.out().format("Put back {} of {}\n", restored, receipts);
        }
        for (const RemovalError& error : errors) {
            console.complain(error.description());
        }
        return errors.empty() ? Exit::done : Exit::failed;
    }

    std::string file_;
};

}

std::unique_ptr<Command> makeRestoreCommand() {
    return std::make_unique<RestoreCommand>();
}

}
