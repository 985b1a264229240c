#pragma once

#include <ScanKit/FileNode.h>
#include <Services/Job.h>

#include <Controllers/Environment.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>

#include <QString>
#include <memory>
#include <optional>

namespace tolvane {

/// A line of the inspector: "On disk", "1.5 GB".
struct Detail {
    QString label;
    QString value;
};

/// Everything known of one item, as ready text.
class Inspector : public QObject {
    Q_OBJECT
    PUBLISHED(Inspector, bool, hasItem)
    PUBLISHED(Inspector, QString, nodeID)
    PUBLISHED(Inspector, QString, name)
    PUBLISHED(Inspector, QString, iconName)
    PUBLISHED(Inspector, QString, pathText)
    PUBLISHED(Inspector, bool, isDirectory)
    Q_PROPERTY(tolvane::ListModel* details READ details CONSTANT)

  public:
    explicit Inspector(const Environment& environment);

    const std::optional<FileNode>& item() const { return item_; }
    void show(const FileNode& node);
    void clear();
    ListModel* details() { return &details_; }

  private:
    struct Nothing {};
    using LinkCount = std::optional<std::int64_t>;

    void countLinks();
    void tellOfLinks(LinkCount count);

    const std::shared_ptr<const FileManager> files_;
    std::optional<FileNode> item_;
    RecordModel<Detail> details_;
    /// Asks the disk: what is slow there must not hold up the main thread.
    Job<Nothing, LinkCount> counting_;
};

}
