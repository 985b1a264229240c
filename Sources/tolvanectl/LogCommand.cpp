#include "Arguments.h"
#include "Command.h"
#include "Json.h"
#include "ShownText.h"

#include <Services/AppLog.h>
#include <Services/Diagnostics.h>

#include <CLI/CLI.hpp>

namespace tolvane {
namespace {

class LogCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("--bytes", bytes_, "How much of the log's end to print (0: all)")
            ->type_name("N")
            ->check(countError)
            ->capture_default_str();
    }

    Exit run(Console& console, const Host& host) override {
        AppLog log(host.layout.locations, host.files);
        const std::string tail =
            Diagnostics(host.layout.locations, log, host.files).logTail(bytes_);
        if (console.writesJSON()) {
            print(console.out(), JSON{{"text", tail}});
        } else {
            printLines(console.out(), tail);
        }
        return Exit::done;
    }

  private:
    static void printLines(Output& out, std::string_view text) {
        while (!text.empty()) {
            const std::string_view line = text.substr(0, text.find('\n'));
            out.format("{}\n", shownText(line));
            text.remove_prefix(std::min(line.size() + 1, text.size()));
        }
    }

    Bytes bytes_ = 32'768;
};

}

std::unique_ptr<Command> makeLogCommand() {
    return std::make_unique<LogCommand>();
}

}
