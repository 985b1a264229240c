#include <Services/PortTexts.h>
#include <Services/PortsFilter.h>

#include <gtest/gtest.h>

#include <map>

namespace tolvane {
namespace {

TEST(PortsFilter, findsAPartOfWhatIsShown) {
    const std::vector<PortListener> listeners = {
        {11, "Caf\u00c9", "/opt/Bin/x", 8080, {"[::1]:9"}, "TCP"},
        {1802, "postgres", std::nullopt, 5432, {"127.0.0.1:5432", "*:6000"}, "TCP"},
        {13, "sshd", "/usr/sbin/sshd", 22, {"127.0.0.1:80"}, "TCP"}};
    const std::pair<std::string, std::string> cases[] = {{"", "11 1802 13 "},
                                                         {" \t ", "11 1802 13 "},
                                                         {"80", "11 1802 13 "},
                                                         {"8080", "11 "},
                                                         {"\tPOSTGRES ", "1802 "},
                                                         {"caf\u00e9", "11 "},
                                                         {"bin", "11 13 "},
                                                         {"0,1", ""},
                                                         {"0.1:5432", "1802 "},
                                                         {"*:6000, 127", "1802 "},
                                                         {"[::1]", "11 "},
                                                         {"TCP", ""},
                                                         {"\nsshd", ""},
                                                         {"s s", ""},
                                                         {"\xff", ""}};
    for (const auto& [query, expected] : cases) {
        std::string found;
        for (const PortListener& listener : PortsFilter(query).filtered(listeners)) {
            found += std::to_string(listener.pid) + " ";
        }
        EXPECT_EQ(found, expected) << query;
    }
}

TEST(PortTexts, tellWhatIsUnseen) {
    using Sight = Processes::Sight;
    const std::map<std::string, std::string> table{
        {PortTexts::notShown(0, Sight::own), ""},
        {PortTexts::notShown(1, Sight::own), "1 more listening socket belongs to other users"},
        {PortTexts::notShown(2000, Sight::own), "2,000 more listening sockets belong to other"},
        {PortTexts::notShown(2, Sight::all), "2 more listening sockets belong to the system"}};
    for (const auto& [text, start] : table) {
        EXPECT_TRUE(text.starts_with(start)) << text;
    }
}

}
}
