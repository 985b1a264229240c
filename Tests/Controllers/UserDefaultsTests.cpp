#include <Support/OddNames.h>
#include <Support/OrdinaryUser.h>
#include <Support/TemporaryHome.h>

#include <Controllers/UserDefaults.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tolvane {
namespace {

void fill(UserDefaults& defaults) {
    defaults.set("spaceAnalysisView", "list");
    defaults.set("autoRun", true);
    defaults.set("scanStats.files", QVariantMap{{"/a/b", 1}, {"/a", "x"}, {"", 2}});
    defaults.setPath("lastScanPath", FileURL("/home/Mei\xc3\x9fner, \"quoted\""));
}

/// Names the values that are as `fill` left them.
std::string known(const UserDefaults& defaults) {
    std::string names;
    if (const auto view = defaults.text("spaceAnalysisView")) {
        names += *view == "list" ? "view " : "WRONG ";
    }
    if (defaults.flag("autoRun")) {
        names += "flag ";
    }
    if (const QVariantMap files = defaults.map("scanStats.files"); !files.isEmpty()) {
        names += files.value("/a/b") == 1 && files.size() == 3 ? "map " : "WRONG ";
    }
    if (const auto path = defaults.path("lastScanPath")) {
        names += path->path() == "/home/Mei\xc3\x9fner, \"quoted\"" ? "path " : "WRONG ";
    }
    return names;
}

class Defaults : public testing::Test {
  protected:
    /// Stores what `fill` sets.
    void store() const {
        UserDefaults defaults(file);
        EXPECT_EQ(known(defaults), "");
        fill(defaults);
        EXPECT_EQ(known(defaults), "view flag map path ");
    }

    const TemporaryHome home;
    const FileURL file = home.url("config/settings.conf");
};

TEST_F(Defaults, comeBackAtTheNextStart) {
    store();
    EXPECT_EQ(known(UserDefaults(file)), "view flag map path ");
}

TEST_F(Defaults, keepPathsByteForByte) {
    std::vector<std::string> names = oddNames();
    std::string everyByte;
    for (int byte = 1; byte < 256; ++byte) {
        everyByte += static_cast<char>(byte);
    }
    names.insert(names.end(), {everyByte, "@ByteArray(x)", "@Invalid()", "\ufeffmark", ""});
    for (const std::string& name : names) {
        const FileURL url("/" + name);
        UserDefaults(file).setPath("lastScanPath", url);
        EXPECT_EQ(UserDefaults(file).path("lastScanPath"), url) << name;
    }
}

TEST_F(Defaults, surviveATruncatedFile) {
    store();
    const std::string whole = home.read("config/settings.conf");
    const QVariantMap map = UserDefaults(file).map("scanStats.files");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string left = whole.substr(0, length);
        home.write("config/settings.conf", left);
        UserDefaults defaults(file);
        EXPECT_EQ(defaults.flag("autoRun"), left.find("autoRun=true") != std::string::npos) << left;
        EXPECT_TRUE(defaults.path("lastScanPath").value_or(FileURL("/")).path().starts_with('/'))
            << left;
        const QVariantMap found = defaults.map("scanStats.files");
        EXPECT_TRUE(found.isEmpty() || found == map) << "half a map: " << left;
        if (length % 40 == 0) {
            UserDefaults(file).set("after", "damage");
            EXPECT_EQ(UserDefaults(file).text("after"), "damage") << left;
        }
    }
}

TEST_F(Defaults, takeValuesOfOtherTypesForAbsent) {
    home.write("config/settings.conf", "[General]\n"
                                       "spaceAnalysisView=a, list\n"
                                       "autoRun=perhaps\n"
                                       "scanStats.files=12\n"
                                       "lastScanPath=@Variant(\\0\\0\\0\\b\\xff)\n"
                                       "no value\n"
                                       "=\n\xff\xfe[\n%%%=1\n[General\n"
                                       "good=value\n");
    const UserDefaults defaults(file);
    EXPECT_EQ(defaults.text("spaceAnalysisView"), std::nullopt);
    EXPECT_FALSE(defaults.flag("autoRun"));
    EXPECT_TRUE(defaults.map("scanStats.files").isEmpty());
    EXPECT_EQ(defaults.path("lastScanPath"), std::nullopt);

    home.write("noise.conf", std::string(100'000, '\x01') + std::string(1000, '\0') + "[a]\n=b");
    EXPECT_EQ(known(UserDefaults(home.url("noise.conf"))), "");
}

TEST_F(Defaults, workWhereNothingCanBeStored) {
    home.makeFolder("folder.conf");
    home.makeFolder("\xff");
    ASSERT_EQ(::mkfifo(home.path("pipe.conf").c_str(), 0600), 0);
    home.write("file");
    for (const char* place : {"folder.conf", "pipe.conf", "file/settings.conf", "\xff/settings"}) {
        UserDefaults defaults(home.url(place));
        fill(defaults);
        EXPECT_EQ(known(defaults), "view flag map path ") << place;
    }
    EXPECT_FALSE(home.has("\xff/settings"));
    EXPECT_FALSE(home.has("\ufffd")) << "another folder than the one named";
}

TEST_F(Defaults, leaveAReadOnlyFileAsItIs) {
    store();
    const std::string before = home.read("config/settings.conf");
    giveToOrdinaryUser(home.path(""));
    ASSERT_EQ(::chmod(home.path("config").c_str(), 0500), 0);
    ASSERT_EQ(::chmod(file.path().c_str(), 0400), 0);
    const std::string seen = asOrdinaryUser([&] {
        UserDefaults defaults(file);
        const std::string found = known(defaults);
        defaults.set("spaceAnalysisView", "grid");
        return found + defaults.text("spaceAnalysisView")->toStdString();
    });
    EXPECT_EQ(seen, "view flag map path grid");
    EXPECT_EQ(home.read("config/settings.conf"), before);
    ASSERT_EQ(::chmod(home.path("config").c_str(), 0700), 0);
}

}
}
