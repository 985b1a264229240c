#include <HostKit/Text.h>

#include <BrightpassKit/BrightpassScanner.h>
#include <Controllers/BrightpassViewModel.h>
#include <Controllers/ScanRoles.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <QPointer>
#include <utility>

namespace tolvane {
namespace {

constexpr Seconds reportInterval = 0.15;
constexpr QLatin1StringView duplicatesPathKey("brightpassDuplicatesPath");
constexpr QLatin1StringView autoRunKey("autoRunBrightpass");

}

BrightpassViewModel::BrightpassViewModel(const Environment& environment)
    : environment_(environment)
    , parts_(BrightpassRows::roles(), BrightpassRows::key)
    , junk_(BrightpassRows::roles(), BrightpassRows::key)
    , apps_(BrightpassRows::roles(), BrightpassRows::key)
    , duplicates_(BrightpassRows::roles(), BrightpassRows::key)
    , failureFolders_(ScanRoles::failureFolders())
    , stages_(BrightpassScanner::stages.begin(), BrightpassScanner::stages.end())
    , activity_([this] {
        return Activity::State{.title = isScanning_ ? stage_.value() : QStringLiteral("Stopping"),
                               .elapsed = environment_.clock() - startedAt_};
    })
    , runJob_(
          environment.workers, reportInterval,
          [this](const std::string& stage) {
              showStage(shownText(stage));
              activity_.refresh();
          },
          [this](Outcome outcome) { apply(std::move(outcome)); },
          [this](const std::string& reason) { abandon(reason); }) {
    duplicatesPath_ = shownPath(duplicatesRoot());
}

BrightpassViewModel::~BrightpassViewModel() = default;

FileURL BrightpassViewModel::duplicatesRoot() const {
    return environment_.defaults.path(duplicatesPathKey)
        .value_or(environment_.layout.locations.downloads);
}

void BrightpassViewModel::appeared() {
    if (environment_.defaults.flag(autoRunKey) && !report_ && !runJob_.isRunning()) {
        run();
    }
}

void BrightpassViewModel::run() {
    cancel();
    banner_ = QString();
    isScanning_ = true;
    showStage(QStringLiteral("Starting"));
    startedAt_ = environment_.clock();
    duplicatesPath_ = shownPath(duplicatesRoot());
    log("brightpass start");
    BrightpassOptions options{.junkRoots = environment_.layout.junkRoots,
                              .duplicatesRoot = duplicatesRoot(),
                              .includeSystemApps = false};
    runJob_.start([layout = environment_.layout, files = environment_.files,
                   options = std::move(options)](const Report<std::string>& report,
                                                 const std::function<bool()>& isCancelled) {
        // A stage that began too soon after another one for the screen is told when it lasts.
        std::string stage;
        const auto begin = [&](const std::string& text) {
            stage = text;
            report(stage);
        };
        const auto look = [&] {
            report(stage);
            return isCancelled();
        };
        BrightpassScanner scanner = BrightpassScanner::of(layout, files, options.duplicatesRoot);
        auto found = std::make_shared<const BrightpassReport>(scanner.scan(options, begin, look));
        return Outcome{std::move(found), isCancelled()};
    });
    publishStage();
}

void BrightpassViewModel::cancel() {
    runJob_.cancel();
    isScanning_ = false;
    publishStage();
}

void BrightpassViewModel::cancelActivity() {
    if (isScanning_) {
        cancel();
    } else {
        // The run was asked to stop and has not come back: something it reads hangs.
        runJob_.discard();
        showStage(QString());
        publishStage();
    }
}

void BrightpassViewModel::apply(Outcome outcome) {
    isPartial_ = outcome.isCancelled;
    replaceReport(std::move(outcome.report));
    isScanning_ = false;
    showStage(QString());
    log(fmt::format("brightpass done junk={} leftovers={} duplicates={} apps={} seconds={:.1f}",
                    report_->junkBytes(), report_->leftoverBytes(), report_->duplicateBytes(),
                    report_->apps.size(), report_->duration));
    publishStage();
}

void BrightpassViewModel::abandon(const std::string& reason) {
    isScanning_ = false;
    showStage(QString());
    banner_ = QStringLiteral("The check failed: ") + shownText(reason);
    log("brightpass failed: " + reason);
    publishStage();
}

void BrightpassViewModel::replaceReport(std::shared_ptr<const BrightpassReport> report) {
    std::shared_ptr<const BrightpassReport> before = std::exchange(report_, std::move(report));
    publishReport();
    if (before) {
        environment_.workers.run([before = std::move(before)]() mutable { before.reset(); });
    }
}

void BrightpassViewModel::publishReport() {
    headline_ = BrightpassRows::headline(*report_);
    totalText_ = shownSize(report_->reclaimableBytes());
    junkText_ = shownSize(report_->junkBytes());
    leftoverText_ = shownSize(report_->leftoverBytes());
    duplicateText_ = shownSize(report_->duplicateBytes());
    appsSummary_ = BrightpassRows::appsSummary(*report_, isPartial_);
    duplicatesSummary_ = BrightpassRows::duplicatesSummary(*report_, isPartial_);
    elapsedText_ = BrightpassRows::elapsed(*report_, isPartial_);
    failuresText_ =
        report_->duplicates ? unreadFoldersText(report_->duplicates->errors) : QString();
    parts_.reset(BrightpassRows::parts(*report_));
    junk_.reset(BrightpassRows::junk(*report_));
    apps_.reset(BrightpassRows::apps(*report_));
    duplicates_.reset(BrightpassRows::duplicates(*report_));
}

void BrightpassViewModel::publishStage() {
    const bool isRunning = runJob_.isRunning();
    const Ui::Stage settled = report_ ? Ui::Stage::Result : Ui::Stage::Start;
    shownStage_ = isRunning ? Ui::Stage::Working : settled;
    activity_.setRunning(isRunning);
}

void BrightpassViewModel::showStage(const QString& stage) {
    stage_ = stage;
    stageNumber_ = static_cast<int>(stages_.indexOf(stage));
}

void BrightpassViewModel::chooseDuplicatesRoot() {
    environment_.workspace.chooseFolder(
        QStringLiteral("Choose the folder that is checked for duplicates"), duplicatesRoot(),
        [self = QPointer(this)](const FileURL& chosen) {
            if (self) {
                self->environment_.defaults.setPath(duplicatesPathKey, chosen);
                self->duplicatesPath_ = shownPath(chosen);
                self->tellNextDuplicatesPath();
            }
        });
}

/// Beside a report, which stays that of another folder, nothing else would show the choice.
void BrightpassViewModel::tellNextDuplicatesPath() {
    if (report_) {
        banner_ =
            QStringLiteral("The next check looks for duplicates in ") + duplicatesPath_.value();
    }
}

void BrightpassViewModel::dismissBanner() {
    banner_ = QString();
}

void BrightpassViewModel::openFailures() {
    if (report_ && report_->duplicates) {
        failureFolders_.reset(failuresByFolder(report_->duplicates->errors));
        showFailures_ = true;
    }
}

void BrightpassViewModel::closeFailures() {
    showFailures_ = false;
}

// Links

void BrightpassViewModel::showJunk(int row) {
    if (!report_ || row < 0 || row >= std::ssize(report_->junk)) {
        return;
    }
    if (const JunkCategory& category = report_->junk[static_cast<std::size_t>(row)];
        category.exists()) {
        Q_EMIT junkRequested(category.url);
    }
}

void BrightpassViewModel::showApp(int row) {
    if (report_ && row >= 0 && row < std::ssize(report_->apps)) {
        Q_EMIT appRequested(report_->apps[static_cast<std::size_t>(row)].app);
    }
}

void BrightpassViewModel::showDuplicates() {
    if (report_ && report_->duplicates) {
        Q_EMIT duplicatesRequested(report_->duplicates->root,
                                   BrightpassScanner::minimumDuplicateSize);
    }
}

void BrightpassViewModel::log(const std::string& message) const {
    environment_.log.write(displayText(message));
}

}
