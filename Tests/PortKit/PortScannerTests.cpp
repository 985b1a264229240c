#include <PortKit/PortScanner.h>
#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>
#include <Support/OrdinaryUser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace tolvane {
namespace {

using std::string_literals::operator""s;
using testing::IsEmpty;

/// "4242-8080-TCP name: addresses" of each, "@" and the path behind it.
std::vector<std::string> described(const std::vector<PortListener>& listeners) {
    std::vector<std::string> lines;
    for (const PortListener& listener : listeners) {
        lines.push_back(listener.id() + " " + listener.processName + ": " +
                        listener.addressSummary() + "@" + listener.executablePath.value_or(""));
    }
    return lines;
}

std::vector<std::string> merged(std::string_view text) {
    return described(PortScanner::merge(PortScanner::parse(text),
                                        [](std::int32_t pid) { return std::to_string(pid); }));
}

TEST(PortScanner, readsWhatLsofPrints) {
    struct Case {
        const char* what;
        std::string text;
        std::vector<std::string> listeners;
    };
    const Case cases[] = {
        {"nothing", "", {}},
        {"no process", "cname\nPTCP\nn*:80\n", {}},
        {"several ports of one process are listed under the first",
         "p7\ncserver\nf3\nPTCP\nn*:5000\nf4\nPTCP\nn127.0.0.1:7000\n",
         {"7-5000-TCP server: *:5000, 127.0.0.1:7000@7"}},
        {"blocks of one process and port are one listener",
         "p7\ncold\nn*:80\np7\nc\nn*:80\nn[::1]:80\np7\ncnew\nn*:80\nn*:81",
         {"7-80-TCP new: *:80, *:81, [::1]:80@7"}},
        {"neither protocol nor name, the last protocol, an empty name",
         "p7\nn[::1]:631\np8\nc\nPUDP\nPTCP6\nn*:632\n",
         {"7-631-TCP unknown: [::1]:631@7", "8-632-TCP6 : *:632@8"}},
        {"by port, then by name with numbers by their value",
         "p1\ncnode10\nn*:80\np2\ncNode2\nn*:80\np3\ncsshd\nn*:22\np4\nca\nn*:100\n",
         {"3-22-TCP sshd: *:22@3", "2-80-TCP Node2: *:80@2", "1-80-TCP node10: *:80@1",
          "4-100-TCP a: *:100@4"}},
        {"the first address with a port counts",
         "p7\nn*\nn*:\nn*:http\nn*:99999999999999999999\nn*:+81\n\n\nn*:82",
         {"7-81-TCP unknown: *, *:, *:+81, *:82, *:99999999999999999999, *:http@7"}},
        {"no pid, or none that fits",
         "p\nn*:1\npx\nn*:2\np2147483648\nn*:3\np7 \nn*:4\np-5\nn*:5\np+6\nn*:6\np8\ncx\n",
         {"-5-5-TCP unknown: *:5@-5", "6-6-TCP unknown: *:6@6"}},
        {"bytes of any kind", "p7\r\nn*:1\np8\nca\0b\r\nn*:2\n\0\nx"s, {"8-2-TCP a\0b\r: *:2@8"s}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(merged(each.text), each.listeners) << each.what;
    }
    std::string longLine;
    longLine.resize(10'000'000, '9');
    EXPECT_THAT(merged("p1\nn*:" + longLine + "\np" + longLine + "\nn*:1\nc" + longLine),
                IsEmpty());
}

class PortScan : public ::testing::Test {
  protected:
    static std::string outcome(const FileURL& lsof) {
        const auto found = PortScanner({.lsof = lsof, .processTree = {}}, {}).scan();
        return found ? std::to_string(found->size()) + " found" : found.error().description();
    }
    /// Those of this machine that are among the processes.
    static std::vector<PortListener> seen(const std::vector<std::int32_t>& pids) {
        auto found = PortScanner(layout().tools, layout().sources).scan().value();
        std::erase_if(found, [&](const PortListener& listener) {
            return std::find(pids.begin(), pids.end(), listener.pid) == pids.end();
        });
        return found;
    }
    static const HostLayout& layout() {
        static const HostLayout current = HostLayout::current();
        return current;
    }

    TemporaryHome home;
};

TEST_F(PortScan, tellsHowLsofFailed) {
    const std::string warning = "echo 'lsof: WARNING: cannot stat() /x' >&2\n"
                                "echo '      Output information may be incomplete.' >&2\n";
    const std::pair<std::string, std::string> cases[] = {
        {"exit 1", "0 found"},
        {"printf 'p1\\nn*:1\\n'; exit 1", "0 found"},
        {"printf 'p1\\nn*:1\\n'; echo ignored >&2", "1 found"},
        {"printf ' \\n no such  option \\n' >&2; exit 1", "lsof failed: no such  option"},
        {"exit 3", "lsof exited with status 3"},
        {"kill -9 $$", "lsof exited with status 137"},
        {warning + "exit 1", "0 found"},
        {warning + "exit 2", "lsof exited with status 2"},
        {warning + warning + "echo at last >&2; exit 1", "lsof failed: at last"},
        {"[ \"$*\" = '-nP -iTCP -sTCP:LISTEN -FpcnP' ] || exit 9; exit 1", "0 found"},
        {"head -c 70000 /dev/zero >&2; head -c 70000 /dev/zero; printf '\\np1\\nn*:1'", "1 found"}};
    for (const auto& [script, expected] : cases) {
        EXPECT_EQ(outcome(madeUpTool(home, script)), expected) << script;
    }
    const std::string missing = "lsof not found at " + home.path("");
    EXPECT_EQ(outcome(home.url("none")), missing + "/none");
    EXPECT_EQ(outcome(home.write("plain")), missing + "/plain");
    EXPECT_EQ(outcome(home.url()), missing);
    home.write("tool", "no program");
    EXPECT_EQ(outcome(home.url("tool")), "Exec format error") << "the system's own words";
}

TEST_F(PortScan, endsAHangingLsofWhenCancelled) {
    const FileURL lsof = madeUpTool(home, "trap '' TERM; exec sleep 100");
    int asked = 0;
    const auto found =
        PortScanner({.lsof = lsof, .processTree = {}}, {}).scan([&] { return ++asked > 2; });
    ASSERT_FALSE(found);
    EXPECT_EQ(found.error(), PortScanError::systemError("Operation canceled"));
}

TEST_F(PortScan, listsRealListeners) {
    const ListeningProcess six({"::1"}, "6 [::1] (x) 7:8");
    const ListeningProcess several({"127.0.0.1", "0.0.0.0", "::"});
    const ListeningProcess shared({"127.0.0.2"}, "node", 3);
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");

    const std::vector<PortListener> ofSix = seen(six.pids());
    ASSERT_EQ(ofSix.size(), 1U);
    EXPECT_EQ(ofSix[0], PortListener(six.pid(), "6 [::1] (x) 7:8", self, six.ports()[0],
                                     {"[::1]:" + std::to_string(six.ports()[0])}, "TCP"));
    EXPECT_FALSE(ofSix[0].isReachableFromNetwork());

    const std::vector<PortListener> ofSeveral = seen(several.pids());
    ASSERT_EQ(ofSeveral.size(), 1U);
    EXPECT_EQ(ofSeveral[0].addresses.size(), 3U);
    EXPECT_TRUE(ofSeveral[0].isReachableFromNetwork());
    for (const std::int64_t port : several.ports()) {
        EXPECT_TRUE(ofSeveral[0].listensOn(port)) << port;
    }
    EXPECT_FALSE(ofSeveral[0].listensOn(six.ports()[0]));

    const std::vector<PortListener> ofShared = seen(shared.pids());
    ASSERT_EQ(ofShared.size(), 3U);
    for (const PortListener& listener : ofShared) {
        EXPECT_EQ(listener.port, shared.ports()[0]);
        EXPECT_EQ(listener.processName, "node");
    }
}

TEST_F(PortScan, countsWhatAnOrdinaryUserCannotSee) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can have listeners of two users";
    }
    const ListeningProcess others({"127.0.0.1", "::1", "::", "0.0.0.0", "::ffff:127.0.0.1"});
    const PortScanner scanner(layout().tools, layout().sources);
    const auto look = [&] {
        auto all = scanner.scan().value();
        const std::size_t unseen = scanner.countUnseen(all);
        const std::size_t before = all.size();
        std::erase_if(all, [&](const PortListener& each) { return each.pid == others.pid(); });
        const bool isSeen = all.size() < before;
        // What becomes unseen without the process must have been seen with it.
        const std::size_t fromIt = scanner.countUnseen(all) - unseen;
        return (isSeen ? "seen, its sockets " : "not seen, its sockets ") + std::to_string(fromIt) +
               (unseen < 5 ? "" : ", 5 more");
    };
    EXPECT_EQ(asOrdinaryUser(look), "not seen, its sockets 0, 5 more");
    EXPECT_THAT(look(), testing::StartsWith("seen, its sockets 5"));
}

}
}
