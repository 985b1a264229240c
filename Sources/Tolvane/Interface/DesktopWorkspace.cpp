#include <Controllers/ShownText.h>
#include <Interface/DesktopWorkspace.h>

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <utility>

namespace tolvane {

DesktopWorkspace::DesktopWorkspace(HostLayout::Locations locations)
    : locations_(std::move(locations)) {}

void DesktopWorkspace::chooseWith(FolderChooser* chooser) {
    chooser_ = chooser;
}

void DesktopWorkspace::chooseFolder(const QString& title, const FileURL& start,
                                    std::function<void(const FileURL&)> onChosen) {
    if (chooser_ != nullptr) {
        chooser_->ask(title, start, std::move(onChosen));
    }
}

void DesktopWorkspace::open(const FileURL& url) {
    QDesktopServices::openUrl(qurl(url));
}

void DesktopWorkspace::copyText(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

}
