#pragma once

#include <Services/Job.h>

#include <Controllers/Environment.h>
#include <Controllers/LeftoverRows.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>
#include <Controllers/UninstallerScan.h>

#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace tolvane {

/// The application that was chosen from the list, what it takes and what it leaves. For the main
/// thread; measuring is left to a worker, and what it finds of an application that is no longer the
/// chosen one is dropped.
class AppDetail : public QObject {
    Q_OBJECT
    /// Whether an application is chosen; all texts are empty while none is.
    PUBLISHED(AppDetail, bool, hasApp)
    /// See `AppRows::idOf`; may be empty though an application is chosen.
    PUBLISHED(AppDetail, QString, appID)
    /// While its size and leftovers are being found; both are none then.
    PUBLISHED(AppDetail, bool, isLoading)
    PUBLISHED(AppDetail, QString, name)
    /// "1.2 · org.example.tool", or without the version.
    PUBLISHED(AppDetail, QString, identityText)
    PUBLISHED(AppDetail, QString, pathText)
    /// As in the list of applications.
    PUBLISHED(AppDetail, QString, iconKey)
    /// Of the application itself: "1.2 GB"; empty while it is not known.
    PUBLISHED(AppDetail, QString, sizeText)
    /// "5 leftovers, 1.2 MB", protected ones included; empty while they are not known.
    PUBLISHED(AppDetail, QString, leftoversText)
    /// "1.3 GB in 4 items", what a removal would move; empty while it is not known.
    PUBLISHED(AppDetail, QString, removableText)
    /// "2 protected items stay"; empty when all can go.
    PUBLISHED(AppDetail, QString, protectedText)
    /// "3 items also match other applications"; empty when none does.
    PUBLISHED(AppDetail, QString, othersText)
    /// Why the list is empty; empty when it is not, or not yet known.
    PUBLISHED(AppDetail, QString, emptyText)
    /// Grouped by kind, with the roles of `LeftoverRows`.
    Q_PROPERTY(tolvane::ListModel* leftovers READ leftoverRows CONSTANT)

  public:
    /// `onFound` hears of each application whose detail has arrived, when all fields tell it.
    AppDetail(const Environment& environment, std::function<void()> onFound);

    const std::optional<InstalledApp>& app() const { return app_; }
    /// 0 while it is not known.
    Bytes appSize() const { return found_.appSize; }
    /// The largest first; none while they are not known.
    const std::vector<LeftoverItem>& leftovers() const { return found_.leftovers; }
    const std::vector<LeftoverOrigin>& origins() const { return found_.origins; }
    std::vector<LeftoverItem> removableLeftovers() const;
    /// Protected ones included.
    Bytes leftoverBytes() const;
    /// Null when there is no such row.
    const LeftoverItem* leftoverAt(int row) const;
    ListModel* leftoverRows() { return &rows_; }

    /// `installed` are those that its leftovers may be confused with.
    void show(const InstalledApp& app, const InstalledApps& installed, const QString& iconKey);
    void setIconKey(const QString& key) { iconKey_ = key; }
    void clear();

  private:
    struct Nothing {};

    void apply(UninstallerScan::Detail found);
    void forget();
    void publish();

    const Environment& environment_;
    const std::function<void()> onFound_;
    std::optional<InstalledApp> app_;
    UninstallerScan::Detail found_;
    RecordModel<ShownLeftover> rows_;
    Job<Nothing, UninstallerScan::Detail> job_;
};

}
