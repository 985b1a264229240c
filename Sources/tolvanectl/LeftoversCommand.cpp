#include "Arguments.h"
#include "Command.h"
#include "Json.h"
#include "ShownText.h"
#include "Table.h"

#include <Services/ByteFormat.h>
#include <UninstallerKit/AppInventory.h>
#include <UninstallerKit/LeftoverFinder.h>

#include <CLI/CLI.hpp>

#include <algorithm>

namespace tolvane {
namespace {

constexpr bool includesSystem = true;

class LeftoversCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("BUNDLE-ID", identifier_, "The application, by its identifier")
            ->type_name("")
            ->check(identifierError)
            ->required();
        app.add_flag("--system-level", includesSystemLevel_,
                     "Look in the folders of the whole system too");
    }

    Exit run(Console& console, const Host& host) override {
        const auto isCancelled = [&] { return console.isCancelled(); };
        const HostLayout::Locations& locations = host.layout.locations;
        const std::vector<InstalledApp> installed =
            AppInventory(host.files, locations.home, std::nullopt, host.layout.applications)
                .scan(includesSystem, isCancelled);
        const auto app = std::find_if(installed.begin(), installed.end(),
                                      [&](const auto& each) { return each.id() == identifier_; });
        if (app == installed.end()) {
            return console.isCancelled() ? Exit::cancelled
                                         : console.fail("No application with the identifier \"" +
                                                        identifier_ + "\" is installed");
        }
        const LeftoverFinder finder(locations.home, locations.systemLibrary, host.files,
                                    ProtectionPolicy(host.layout.protection),
                                    host.layout.leftovers);
        const std::vector<LeftoverItem> items =
            finder.leftovers(*app, includesSystemLevel_, isCancelled);
        if (console.writesJSON()) {
            printJSON(console, *app, items);
        } else {
            printTable(console, *app, items, finder.origins(items, *app, installed));
        }
        if (console.isCancelled()) {
            console.complain("Cancelled: a partial result");
            return Exit::cancelled;
        }
        return Exit::done;
    }

  private:
    static void printJSON(Console& console, const InstalledApp& app,
                          const std::vector<LeftoverItem>& items) {
        print(console.out(), JSON{{"app", toJson(app)},
                                  {"leftovers", listOf(items)},
                                  {"totalSize", LeftoverFinder::totalSize(items)}});
    }

    /// What a person should know before removing it.
    static std::string note(const LeftoverItem& item, const LeftoverOrigin& origin) {
        std::string text = item.isProtected ? "protected, " : "";
        text += origin.certainty == LeftoverOrigin::Certainty::exact ? "exact" : "by name";
        if (!origin.otherApps.empty()) {
            text += ", also of " + shownText(origin.otherApps.front());
        }
        return text;
    }

    static void printTable(Console& console, const InstalledApp& app,
                           const std::vector<LeftoverItem>& items,
                           const std::vector<LeftoverOrigin>& origins) {
        console.out().format("{} ({}) leaves {} in {} {}\n", shownText(app.name),
                             shownText(app.bundleID),
                             ByteFormat::text(LeftoverFinder::totalSize(items)), items.size(),
                             items.size() == 1 ? "item" : "items");
        if (items.empty()) {
            return;
        }
        using enum Alignment;
        Table table({right, left, left, left});
        table.add({"ON DISK", "KIND", "MATCH", "PATH"});
        for (std::size_t i = 0; i < items.size(); ++i) {
            table.add({ByteFormat::text(items[i].size), items[i].kind, note(items[i], origins[i]),
                       shownText(items[i].url.path())});
        }
        console.out().append(table.text());
    }

    std::string identifier_;
    bool includesSystemLevel_ = false;
};

}

std::unique_ptr<Command> makeLeftoversCommand() {
    return std::make_unique<LeftoversCommand>();
}

}
