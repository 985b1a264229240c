#include <Support/OrdinaryUser.h>
#include <Support/RunProgram.h>

#include <grp.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

namespace tolvane {
namespace {

constexpr uid_t nobody = 65534;

bool dropRights() {
    return ::geteuid() != 0 ||
           (::setgroups(0, nullptr) == 0 && ::setresgid(nobody, nobody, nobody) == 0 &&
            ::setresuid(nobody, nobody, nobody) == 0);
}

}

std::string asOrdinaryUser(const std::function<std::string()>& work) {
    const auto child = [&](std::FILE* output) {
        const std::string text = dropRights() ? work() : "root's rights could not be dropped";
        std::fwrite(text.data(), 1, text.size(), output);
    };
    return runChild(child).output;
}

void giveToOrdinaryUser(const std::string& folder) {
    if (::geteuid() != 0) {
        return;
    }
    EXPECT_EQ(::lchown(folder.c_str(), nobody, nobody), 0) << folder;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        EXPECT_EQ(::lchown(entry.path().c_str(), nobody, nobody), 0) << entry.path();
    }
}

}
