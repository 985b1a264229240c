/// Prints what it costs to list 2,000 made-up applications of either kind, to find the leftovers of
/// one, and to tell for all its leftovers who else would claim them.

#include <HostKit/HostLayout.h>
#include <Support/CountingFiles.h>
#include <UninstallerKit/AppInventory.h>
#include <UninstallerKit/LeftoverFinder.h>

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <vector>

namespace tolvane {
namespace {

constexpr int appCount = 2'000;

double cpuSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// The best of several rounds, with a warm cache.
double measured(const std::function<void()>& work) {
    constexpr int rounds = 5;
    double best = 1e9;
    for (int round = 0; round <= rounds; ++round) {
        const double start = cpuSeconds();
        work();
        best = round == 0 ? best : std::min(best, cpuSeconds() - start);
    }
    return best;
}

void write(const FileURL& url, const std::string& content) {
    std::filesystem::create_directories(url.deletingLastPathComponent().path());
    std::ofstream(url.path(), std::ios::binary) << content;
}

std::string identifier(int number) {
    return fmt::format("org.example.application{}", number);
}

void makeBundle(const FileURL& home, int number) {
    const std::string id = identifier(number);
    std::string documents;
    for (int i = 0; i < 20; ++i) {
        documents += "<dict><key>CFBundleTypeName</key><string>Document</string></dict>\n";
    }
    write(
        home.appending(fmt::format("Applications/Application {}.app/Contents/Info.plist", number)),
        fmt::format("<?xml version=\"1.0\"?>\n<plist version=\"1.0\"><dict>"
                    "<key>CFBundleIdentifier</key><string>{}</string>"
                    "<key>CFBundleName</key><string>Application {}</string>"
                    "<key>CFBundleDocumentTypes</key><array>{}</array></dict></plist>\n",
                    id, number, documents));
    write(home.appending("Library/Preferences/" + id + ".plist"), "x");
}

void makeImage(const FileURL& home, int number) {
    const std::string id = identifier(number);
    const FileURL image =
        home.appending(fmt::format("Applications/Application-{}-1.0.AppImage", number));
    write(image, std::string("\x7F"
                             "ELF\2\1\1\0AI\2 content",
                             19));
    write(home.appending(".local/share/applications/" + id + ".desktop"),
          fmt::format("[Desktop Entry]\nName=Application {}\nExec={} %U\n", number, image.path()));
    write(home.appending(".config/" + id + "rc"), "x");
}

/// What the search for one application's leftovers asks the file system.
void countCalls(const HostLayout& layout, const InstalledApp& app) {
    const FileURL& home = layout.locations.home;
    const auto counts = std::make_shared<FileCounts>();
    const LeftoverFinder finder(home, home.appending("system"),
                                std::make_shared<CountingFiles>(systemFileManager(layout), counts),
                                ProtectionPolicy(layout.protection), layout.leftovers);
    const std::size_t found = finder.leftovers(app, true).size();
    int tests = 0;
    int listings = 0;
    for (const auto& [path, count] : *counts) {
        (path.ends_with('/') ? listings : tests) += count;
    }
    fmt::print("  existence tests / listings{:>6} / {} ({} leftovers, {} rows)\n", tests, listings,
               found, layout.leftovers.rows.size());
}

void measure(const std::string& title, const HostLayout& layout,
             const std::function<void(const FileURL&, int)>& make) {
    const FileURL& home = layout.locations.home;
    for (int number = 0; number < appCount; ++number) {
        make(home, number);
    }
    const std::shared_ptr<const FileManager> files = systemFileManager(layout);
    const AppInventory inventory(files, home, std::vector{home.appending("Applications")},
                                 layout.applications);
    const LeftoverFinder finder(home, home.appending("system"), files,
                                ProtectionPolicy(layout.protection), layout.leftovers);
    std::vector<InstalledApp> apps;
    std::vector<LeftoverItem> items;
    const double listing = measured([&] { apps = inventory.scan(false); });
    // The number that most of the others begin with.
    const InstalledApp app{"", identifier(1), "", "", home.appending("Applications/1"), false, {}};
    const double finding = measured([&] { items = finder.leftovers(app, true); });
    const double claiming = measured([&] { finder.origins(items, app, apps); });
    fmt::print("{}\n  {} applications listed{:>14.3f} s CPU\n"
               "  {} leftovers of one found{:>12.3f} s CPU\n"
               "  who else claims them{:>17.3f} s CPU\n",
               title, apps.size(), listing, items.size(), finding, claiming);
    countCalls(layout, apps.back());
}

/// Everything below a folder of this run's own, which is removed at its end.
int runAll() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tolvane-apps-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        std::perror("mkdtemp");
        return 1;
    }
    const FileURL folder(pattern);
    measure("bundles with information dictionaries", HostLayout::darwin(folder.appending("darwin")),
            makeBundle);
    measure("AppImages with launchers", HostLayout::freedesktop(folder.appending("linux"), {}),
            makeImage);
    std::filesystem::remove_all(pattern);
    return 0;
}

}
}

int main() {
    return tolvane::runAll();
}
