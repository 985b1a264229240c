#pragma once

#include <Support/FaultyFiles.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace tolvane {

/// How often what was asked of the file system: by paths, with "/" at the end of those listed or
/// opened.
using FileCounts = std::map<std::string, int>;

/// Counts existence tests, listings and readings on their way to another file manager.
class CountingFiles final : public FaultyFiles {
  public:
    CountingFiles(std::shared_ptr<const FileManager> files, std::shared_ptr<FileCounts> counts)
        : FaultyFiles(std::move(files),
                      [counts](FileOperation, const FileURL& url) -> std::optional<SystemError> {
                          ++(*counts)[url.path() + "/"];
                          return std::nullopt;
                      })
        , counts_(std::move(counts)) {}

    std::optional<FileType> targetType(const FileURL& url) const override {
        ++(*counts_)[url.path()];
        return FaultyFiles::targetType(url);
    }

  private:
    std::shared_ptr<FileCounts> counts_;
};

}
