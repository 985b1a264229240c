#pragma once

#include <HostKit/Trash.h>

#include <functional>
#include <memory>
#include <utility>

namespace tolvane {

/// A Trash in front of which something happens: between the checks of its caller and the move.
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
