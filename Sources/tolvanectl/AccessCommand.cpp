#include "Command.h"
#include "Json.h"

#include <ScanKit/FullDiskAccess.h>

#include <CLI/CLI.hpp>

namespace tolvane {
namespace {

class AccessCommand : public Command {
  public:
    void declare(CLI::App&) override {}

    Exit run(Console& console, const Host& host) override {
        const FullDiskAccessStatus status = FullDiskAccess::status(host.layout.access, *host.files);
        if (console.writesJSON()) {
            print(console.out(), toJson(status));
        } else {
            console.out().format("{}\n", status.guidance());
        }
        return Exit::done;
    }
};

}

std::unique_ptr<Command> makeAccessCommand() {
    return std::make_unique<AccessCommand>();
}

}
