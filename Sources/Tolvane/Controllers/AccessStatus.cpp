#include <HostKit/Text.h>

#include <Controllers/AccessStatus.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <utility>

namespace tolvane {

AccessStatus::AccessStatus(const HostLayout& layout, std::shared_ptr<const FileManager> files,
                           Workers& workers, AppLog& log, Workspace& workspace)
    : probes_(layout.access)
    , files_(std::move(files))
    , log_(log)
    , workspace_(workspace)
    , checking_(workers, 0, {}, [this](FullDiskAccessStatus status) {
        show(std::move(status));
        log_.write(displayText(
            fmt::format("fda status granted={} detail={}", status_.granted, status_.detail)));
    }) {
    refresh();
}

void AccessStatus::refresh() {
    checking_.discard();
    show(FullDiskAccess::status(probes_, *files_));
}

void AccessStatus::recheck() {
    checking_.start([probes = probes_, files = files_](const auto&, const auto&) {
        return FullDiskAccess::status(probes, *files);
    });
}

void AccessStatus::openSettings() {
    workspace_.openSettingsPane(SettingsPane::fullDiskAccess);
}

void AccessStatus::relaunch() {
    workspace_.relaunch();
}

void AccessStatus::show(FullDiskAccessStatus status) {
    status_ = std::move(status);
    isGranted_ = status_.granted;
    statusText_ = status_.granted ? QStringLiteral("Granted") : QStringLiteral("Not granted");
    detailText_ = shownText(status_.detail);
    guidanceText_ = shownText(status_.guidance());
}

}
