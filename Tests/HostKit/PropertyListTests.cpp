#include <HostKit/PropertyList.h>
#include <Support/MadePropertyLists.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

std::string repeated(std::string_view text, std::size_t times) {
    std::string all;
    while (times-- > 0) {
        all += text;
    }
    return all;
}

TEST(PropertyList, readsBothFormsAlike) {
    const Strings strings{{"CFBundleIdentifier", "org.example.app"}, {"Empty", ""}};
    for (const std::string& bytes : {xmlPropertyList(strings), binaryPropertyList(strings)}) {
        const auto list = PropertyList::parse(bytes);
        ASSERT_TRUE(list && list->dictionary() != nullptr);
        EXPECT_EQ(list->dictionary()->size(), 2U);
        EXPECT_EQ(*list->at("CFBundleIdentifier")->string(), "org.example.app");
        EXPECT_EQ(*list->at("Empty")->string(), "");
        EXPECT_EQ(list->at("Missing"), nullptr);
    }
    const auto list = PropertyList::parse(xmlPropertyList(
        "<array><string>a &amp; <![CDATA[<b>]]><!-- </array> --></string><true/><integer>-7"
        "</integer><real>0.5</real><date>2026-01-01T00:00:00Z</date><dict/></array>"));
    ASSERT_TRUE(list && list->list() != nullptr);
    const PropertyList::List& values = *list->list();
    ASSERT_EQ(values.size(), 6U);
    EXPECT_EQ(*values[0].string(), "a & <b>");
    EXPECT_EQ(values[1].boolean(), true);
    EXPECT_EQ(values[2].integer(), -7);
    EXPECT_EQ(values[3].real(), 0.5);
    EXPECT_FALSE(values[4].string() != nullptr || values[4].integer()) << "dates have no value";
    EXPECT_TRUE(values[5].dictionary()->empty());
    EXPECT_EQ(values[5].string(), nullptr);
}

TEST(PropertyList, readsWhatHonestFilesNest) {
    const std::string nested = repeated("<array>", 60) + repeated("</array>", 60);
    EXPECT_TRUE(PropertyList::parse(xmlPropertyList(nested)));
    const auto many = PropertyList::parse(
        xmlPropertyList("<array>" + repeated("<dict></dict>", 15'000) + "</array>"));
    ASSERT_TRUE(many);
    EXPECT_EQ(many->list()->size(), 15'000U);
}

/// Each of these would take all memory, minutes or the stack of the library that reads them.
TEST(PropertyList, refusesWhatWouldCostTooMuch) {
    std::string laughs = "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaa\">";
    std::vector<std::string> doubling;
    std::vector<std::string> chain;
    for (std::size_t i = 1; i < 60; ++i) {
        doubling.push_back(binaryArray({i, i}));
    }
    for (std::size_t i = 1; i < 15'000; ++i) {
        chain.push_back(binaryArray({i}));
    }
    doubling.emplace_back("\x09");
    chain.emplace_back("\x09");
    const std::string longString = "\x5F\x12" + std::string({0, 1, 0, 0}) + std::string(65536, 'x');
    const std::string opened = repeated("<array>", 30'000);
    for (const std::string& bytes :
         {laughs + "]><plist version=\"1.0\"><string>&a;</string></plist>",
          binaryObjects({binaryArray({0})}),                   // holds itself
          binaryObjects({binaryArray({1}), binaryArray({0})}), // by way of another
          binaryObjects(doubling),                             // 2^59 values
          binaryObjects(chain),                                // 15,000 levels
          binaryObjects({binaryArray(std::vector<std::size_t>(60'000, 1)), longString}),
          xmlPropertyList(opened + repeated("</array>", 30'000)), xmlPropertyList(opened),
          // Passages in which closing tags do not close anything.
          xmlPropertyList(repeated("<array><!--></array>-->", 5'000)),
          "<plist a=\"><!--\">" + opened + "-->",
          "<plist version=\"1.0\">" + repeated("<array a=\"></array>\">", 5'000),
          xmlPropertyList("<string>" + std::string(PropertyList::largestSize, 'x') +
                          "</string>")}) {
        EXPECT_FALSE(PropertyList::parse(bytes)) << testing::PrintToString(bytes.substr(0, 200));
    }
}

TEST(PropertyList, refusesWhatIsBroken) {
    const std::string binary = binaryPropertyList(Strings{{"key", "value"}, {"other", "text"}});
    const std::string xml = xmlPropertyList(Strings{{"key", "value"}});
    for (std::size_t length = 0; length < binary.size(); ++length) {
        EXPECT_FALSE(PropertyList::parse(binary.substr(0, length))) << length;
    }
    for (std::size_t length = 0; length < xml.find("</dict>"); ++length) {
        EXPECT_FALSE(PropertyList::parse(xml.substr(0, length))) << length;
    }
    for (std::size_t position = 8; position < binary.size(); ++position) {
        for (const char byte : {'\x00', '\x01', '\x7F', '\xA1', '\xD1', '\xFF'}) {
            std::string changed = binary;
            changed[position] = byte;
            PropertyList::parse(changed); // reads nothing beyond the end, as the sanitizer sees
        }
    }
    for (const std::string_view text : {"", "no list", "{\"json\": 1}", "<plist/>", "bplist00"}) {
        EXPECT_FALSE(PropertyList::parse(text)) << text;
    }
    const std::string nul(1, '\0');
    for (const Strings& strings : {Strings{{"k" + nul, "v"}}, Strings{{"k", "v" + nul}}}) {
        EXPECT_FALSE(PropertyList::parse(binaryPropertyList(strings)));
        EXPECT_FALSE(PropertyList::parse(xmlPropertyList(strings)));
    }
    EXPECT_FALSE(PropertyList::parse(xmlPropertyList(Strings{{"k&#0;", "v"}})));
}

}
}
