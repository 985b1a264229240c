#include "Command.h"
#include "Json.h"
#include "ShownText.h"
#include "Table.h"

#include <Services/ByteFormat.h>
#include <UninstallerKit/AppInventory.h>

#include <CLI/CLI.hpp>

namespace tolvane {
namespace {

class AppsCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_flag("--system", includesSystem_, "Include the system's own applications");
        app.add_flag("--sizes", measures_, "Measure each application");
    }

    Exit run(Console& console, const Host& host) override {
        const AppInventory inventory(host.files, host.layout.locations.home, std::nullopt,
                                     host.layout.applications);
        const std::vector<InstalledApp> apps =
            inventory.scan(includesSystem_, [&] { return console.isCancelled(); });
        const std::vector<Bytes> sizes =
            measures_ ? measured(console, inventory, apps) : std::vector<Bytes>();
        if (console.writesJSON()) {
            printJSON(console, apps, sizes);
        } else {
            printTable(console, apps, sizes);
            if (const std::string& note = host.layout.applications.leftOut; !note.empty()) {
                console.out().format("{}\n", console.styled(Style::faint, note));
            }
        }
        if (console.isCancelled()) {
            console.complain("Cancelled: a partial result");
            return Exit::cancelled;
        }
        return Exit::done;
    }

  private:
    /// Of the first applications only, when cancelled.
    static std::vector<Bytes> measured(Console& console, const AppInventory& inventory,
                                       const std::vector<InstalledApp>& apps) {
        std::vector<Bytes> sizes;
        for (const InstalledApp& app : apps) {
            if (console.isCancelled()) {
                break;
            }
            if (console.progress().isDue()) {
                console.progress().show("Measuring", app.url.path());
            }
            sizes.push_back(inventory.size(app));
        }
        console.progress().clear();
        return sizes;
    }

    void printJSON(Console& console, const std::vector<InstalledApp>& apps,
                   const std::vector<Bytes>& sizes) const {
        JSON list = JSON::array();
        for (std::size_t i = 0; i < apps.size(); ++i) {
            JSON object = toJson(apps[i]);
            if (measures_) {
                object["size"] = i < sizes.size() ? JSON(sizes[i]) : JSON();
            }
            list.push_back(std::move(object));
        }
        print(console.out(), list);
    }

    void printTable(Console& console, const std::vector<InstalledApp>& apps,
                    const std::vector<Bytes>& sizes) const {
        if (apps.empty()) {
            console.out().append("No applications found.\n");
            return;
        }
        using enum Alignment;
        Table table(measures_ ? std::vector{left, left, left, right, left}
                              : std::vector{left, left, left, left});
        std::vector<std::string> titles{"NAME", "VERSION", "IDENTIFIER", "PATH"};
        if (measures_) {
            titles.insert(titles.end() - 1, "ON DISK");
        }
        table.add(std::move(titles));
        for (std::size_t i = 0; i < apps.size(); ++i) {
            const InstalledApp& app = apps[i];
            std::vector<std::string> cells{shownText(app.name), shownText(app.version),
                                           shownText(app.bundleID), shownText(app.url.path())};
            if (measures_) {
                cells.insert(cells.end() - 1,
                             i < sizes.size() ? ByteFormat::text(sizes[i]) : "cancelled");
            }
            table.add(std::move(cells));
        }
        console.out().append(table.text());
    }

    bool includesSystem_ = false;
    bool measures_ = false;
};

}

std::unique_ptr<Command> makeAppsCommand() {
    return std::make_unique<AppsCommand>();
}

}
