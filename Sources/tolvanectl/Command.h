#pragma once

#include "Console.h"
#include "Host.h"

#include <memory>

namespace CLI {
class App;
}

namespace tolvane {

/// One command of the program: what it takes from the command line, and what it does.
class Command {
  public:
    virtual ~Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    /// Adds its options and arguments to `app`, which fills this object when it parses.
    virtual void declare(CLI::App& app) = 0;
    virtual Exit run(Console& console, const Host& host) = 0;

  protected:
    Command() = default;
};

std::unique_ptr<Command> makeAccessCommand();
std::unique_ptr<Command> makeAppsCommand();
std::unique_ptr<Command> makeCheckCommand();
std::unique_ptr<Command> makeDuplicatesCommand();
std::unique_ptr<Command> makeKillCommand();
std::unique_ptr<Command> makeLeftoversCommand();
std::unique_ptr<Command> makeLogCommand();
std::unique_ptr<Command> makeMaintenanceCommand();
std::unique_ptr<Command> makePerformanceCommand();
std::unique_ptr<Command> makePortsCommand();
std::unique_ptr<Command> makeRestoreCommand();
std::unique_ptr<Command> makeScanCommand();
std::unique_ptr<Command> makeSizeCommand();
std::unique_ptr<Command> makeTrashCommand();

}
