#include <CleanupKit/ProtectionPolicy.h>

#include <gtest/gtest.h>

namespace tolvane {
namespace {

const HostLayout::Protection noAdditions;

bool isProtected(const ProtectionPolicy& policy, const std::string& path) {
    return policy.isProtected(FileURL(path));
}

TEST(ProtectionPolicy, protectsTheSystemAndNotTheUser) {
    const ProtectionPolicy policy(noAdditions);
    EXPECT_EQ(policy.protectedPrefixes.size(), 15U);
    EXPECT_EQ(policy.protectedExactPaths.size(), 3U);
    for (const std::string path :
         {"/", "//", "/Users", "/Users/", "/Users/Shared", "/Applications",
          "/Applications/Some.app", "/Library/Caches", "/etc/x", "/usr/../usr/bin", "/.Trashes/501",
          "/Users/alice/../../System", "/private/tmp/x"}) {
        EXPECT_TRUE(isProtected(policy, path)) << path;
    }
    for (const std::string path :
         {"/Users/Shared/file", "/Users/alice/Downloads/big.iso", "/Applications2", "/LibraryData",
          "/usrlocal", "/System/../Users/alice/x", "/Volumes/External/file", "/tmp/x"}) {
        EXPECT_FALSE(isProtected(policy, path)) << path;
    }
}

TEST(ProtectionPolicy, takesNamesAtFaceValueButForTheirSpelling) {
    EXPECT_FALSE(isProtected(ProtectionPolicy(noAdditions), "/system/x")) << "case counts";
    const ProtectionPolicy policy({{"/caf\u00e9"}}, {{"/ko\u0308ln"}}, noAdditions);
    EXPECT_TRUE(isProtected(policy, "/cafe\u0301/menu"));
    EXPECT_FALSE(isProtected(policy, "/cafe\u0301s"));
    EXPECT_TRUE(isProtected(policy, "/k\u00f6ln"));
    EXPECT_FALSE(isProtected(policy, "/k\u00f6ln/dom"));
    EXPECT_FALSE(isProtected(policy, "/caf\xe9"));
}

TEST(ProtectionPolicy, addsThePlacesOfTheSystemToDefaultListsOnly) {
    const HostLayout layout = HostLayout::freedesktop(FileURL("/home/alice"), {});
    const ProtectionPolicy policy(layout.protection);
    for (const std::string path : {"/boot/vmlinuz", "/opt", "/home", "/root", "/run", "/snap/x"}) {
        EXPECT_TRUE(isProtected(policy, path)) << path;
    }
    for (const std::string path : {"/home/alice", "/root/x", "/run/media/u/stick/x", "/tmp/x"}) {
        EXPECT_FALSE(isProtected(policy, path)) << path;
    }
    const ProtectionPolicy nothing(std::vector<std::string>{}, std::vector<std::string>{},
                                   layout.protection);
    EXPECT_FALSE(isProtected(nothing, "/"));
    EXPECT_FALSE(isProtected(nothing, "/boot"));
    const ProtectionPolicy onlyExact(std::vector<std::string>{}, std::nullopt, layout.protection);
    EXPECT_TRUE(isProtected(onlyExact, "/home"));
    EXPECT_FALSE(isProtected(onlyExact, "/boot"));
}

}
}
