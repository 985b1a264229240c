#include "Arguments.h"
#include "Command.h"
#include "Json.h"
#include "ShownText.h"

#include <CleanupKit/Cleaner.h>
#include <HostKit/Trash.h>

#include <CLI/CLI.hpp>

namespace tolvane {
namespace {

constexpr bool allowsProtected = false;

class TrashCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("--within", roots_, "A folder the items must lie in (repeatable)")
            ->type_name("ROOT")
            ->allow_extra_args(false)
            ->check(pathError)
            ->required();
        app.add_flag("--dry-run", isDryRun_, "Only tell what would be moved");
        app.add_option("ITEM", items_, "What to move to the Trash")
            ->type_name("")
            ->check(pathError)
            ->required();
    }

    Exit run(Console& console, const Host& host) override {
        const Result<std::vector<FileURL>, std::string> roots = host.places(roots_);
        const Result<std::vector<FileURL>, std::string> items = host.places(items_);
        if (!roots || !items) {
            return console.fail(roots ? items.error() : roots.error());
        }
        const Cleaner cleaner(ProtectionPolicy(host.layout.protection), host.layout.locations.home,
                              host.files, systemTrash(host.layout));
        return isDryRun_ ? tell(console, cleaner.validate(*items, *roots, allowsProtected))
                         : tell(console, cleaner.moveToTrash(*items, *roots, allowsProtected));
    }

  private:
    static Exit tell(Console& console, const Result<std::vector<FileURL>, RemovalError>& accepted) {
        if (!accepted) {
            return console.fail(accepted.error().description());
        }
        if (console.writesJSON()) {
            JSON list = JSON::array();
            for (const FileURL& url : *accepted) {
                list.push_back(pathElement(url.path()));
            }
            print(console.out(), JSON{{"accepted", std::move(list)}});
            return Exit::done;
        }
        for (const FileURL& url : *accepted) {
            console.out().format("Would move {}\n", shownText(url.path()));
        }
        return Exit::done;
    }

    static Exit tell(Console& console,
                     const Result<std::vector<RemovalReceipt>, RemovalError>& moved) {
        if (!moved) {
            return console.fail(moved.error().description());
        }
        if (console.writesJSON()) {
            print(console.out(), JSON{{"receipts", listOf(*moved)}});
            return Exit::done;
        }
        for (const RemovalReceipt& receipt : *moved) {
            console.out().format("{}\n  now {}\n", shownText(receipt.original.path()),
                                 shownText(receipt.trashed.path()));
        }
        console.out().append("The space returns when the Trash is emptied.\n");
        return Exit::done;
    }

    std::vector<std::string> roots_;
    std::vector<std::string> items_;
    bool isDryRun_ = false;
};

}

std::unique_ptr<Command> makeTrashCommand() {
    return std::make_unique<TrashCommand>();
}

}
