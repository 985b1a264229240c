#pragma once

#include <HostKit/Trash.h>

#include <memory>
#include <string>
#include <utility>

namespace tolvane {

/// A Trash into which everything goes but what bears one name.
class FailingTrash final : public Trash {
  public:
    FailingTrash(std::shared_ptr<const Trash> trash, std::string name)
        : trash_(std::move(trash))
        , name_(std::move(name)) {}

    Result<std::optional<FileURL>, std::string> move(const FileURL& item,
                                                     const FileURL& within) const override {
        if (item.lastPathComponent() == name_) {
            return tl::unexpected(std::string("it is in use"));
        }
        return trash_->move(item, within);
    }
    Result<void, std::string> putBack(const FileURL& trashed,
                                      const FileURL& original) const override {
        return trash_->putBack(trashed, original);
    }

  private:
    const std::shared_ptr<const Trash> trash_;
    const std::string name_;
};

}
