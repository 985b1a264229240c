#include <Controllers/ShownText.h>
#include <Interface/FolderChooser.h>

#include <optional>
#include <utility>

namespace tolvane {

void FolderChooser::ask(const QString& title, const FileURL& start,
                        std::function<void(const FileURL&)> onChosen) {
    onChosen_ = std::move(onChosen);
    title_ = title;
    start_ = qurl(start);
    isOpen_ = true;
}

void FolderChooser::accept(const QUrl& folder) {
    const std::function<void(const FileURL&)> onChosen = std::exchange(onChosen_, nullptr);
    isOpen_ = false;
    const std::optional<FileURL> url = fileURL(folder);
    if (url && onChosen) {
        onChosen(*url);
    }
}

void FolderChooser::reject() {
    onChosen_ = nullptr;
    isOpen_ = false;
}

}
