#include <HostKit/TrashInfo.h>
#include <Support/RemovalHome.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

namespace tolvane {
namespace {

namespace fs = std::filesystem;

class InterruptedTrash final : public Trash {
  public:
    InterruptedTrash(std::shared_ptr<const Trash> trash, std::function<void()> before)
        : trash_(std::move(trash))
        , before_(std::move(before)) {}

    Result<std::optional<FileURL>, std::string> move(const FileURL& item,
                                                     const FileURL& within) const override {
        before_();
        return trash_->move(item, within);
    }
    Result<void, std::string> putBack(const FileURL& trashed,
                                      const FileURL& original) const override {
        before_();
        return trash_->putBack(trashed, original);
    }

  private:
    std::shared_ptr<const Trash> trash_;
    std::function<void()> before_;
};

}

std::vector<FileURL> RemovalHome::urls(const std::vector<std::string>& relative) const {
    std::vector<FileURL> list;
    for (const std::string& path : relative) {
        list.push_back(url(path));
    }
    return list;
}

Cleaner RemovalHome::cleanerWith(std::shared_ptr<const Trash> other) const {
    const std::vector<std::string> nothing;
    return Cleaner({nothing, nothing, layout.protection}, url(), files, std::move(other));
}

std::shared_ptr<const Trash> RemovalHome::trashAfter(std::function<void()> before) const {
    return std::make_shared<InterruptedTrash>(trash, std::move(before));
}

std::vector<RemovalReceipt> RemovalHome::receiptsFromTrash() const {
    std::vector<RemovalReceipt> receipts;
    const std::string folder = ".local/share/Trash/";
    if (!has(folder + "info")) {
        return receipts;
    }
    for (const auto& entry : fs::directory_iterator(path(folder + "info"))) {
        const std::string item = folder + "files/" + entry.path().stem().native();
        const std::optional<TrashInfo> info =
            TrashInfo::parse(read(folder + "info/" + entry.path().filename().native()));
        if (has(item)) {
            EXPECT_TRUE(info) << item << " has no valid info file";
            receipts.push_back(
                {freshIdentifier(), FileURL(info.value_or(TrashInfo{}).path), url(item)});
        }
    }
    return receipts;
}

bool RemovalHome::isTrashEmpty() const {
    const std::string folder = layout.locations.homeTrash.path();
    return fs::is_empty(folder + "/files") && fs::is_empty(folder + "/info");
}

}
