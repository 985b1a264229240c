#pragma once

#include <HostKit/FileURL.h>
#include <Services/Job.h>

#include <Controllers/Environment.h>

#include <QList>
#include <QString>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tolvane {

/// Finds out which of the places that a person named is a folder. Asks the disk on a worker: one
/// that does not answer must not hold up the main thread, which this is for.
class FolderFinder {
  public:
    struct Handlers {
        std::function<void(const FileURL& folder)> onFound;
        /// `otherwise` is what the search was begun with.
        std::function<void(const QString& otherwise)> onNone;
    };

    FolderFinder(const Environment& environment, Handlers handlers);

    /// Takes the first of `places` that is a folder or a link to one. A newer search supersedes it.
    void find(std::vector<FileURL> places, const QString& otherwise);
    /// The same among what was dropped.
    void find(const QList<QUrl>& urls, const QString& otherwise);
    /// Nothing arrives of the search that runs.
    void discard() { finding_.discard(); }

  private:
    struct Nothing {};
    using Found = std::optional<FileURL>;

    const std::shared_ptr<const FileManager> files_;
    const Handlers handlers_;
    QString otherwise_;
    Job<Nothing, Found> finding_;
};

}
