#include <Controllers/FolderFinder.h>
#include <Controllers/ShownText.h>

#include <utility>

namespace tolvane {

FolderFinder::FolderFinder(const Environment& environment, Handlers handlers)
    : files_(environment.files)
    , handlers_(std::move(handlers))
    , finding_(
          environment.workers, 0, {},
          [this](const Found& found) {
              found ? handlers_.onFound(*found) : handlers_.onNone(otherwise_);
          },
          [this](const std::string&) { handlers_.onNone(otherwise_); }) {}

void FolderFinder::find(const QList<QUrl>& urls, const QString& otherwise) {
    std::vector<FileURL> places;
    for (const QUrl& url : urls) {
        if (std::optional<FileURL> place = fileURL(url)) {
            places.push_back(std::move(*place));
        }
    }
    find(std::move(places), otherwise);
}

void FolderFinder::find(std::vector<FileURL> places, const QString& otherwise) {
    otherwise_ = otherwise;
    finding_.start([files = files_, places = std::move(places)](const auto&, const auto&) {
        for (const FileURL& place : places) {
            if (files->targetType(place) == FileType::directory) {
                return Found(place);
            }
        }
        return Found();
    });
}

}
