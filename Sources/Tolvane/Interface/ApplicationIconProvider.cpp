#include <Components/IconProvider.h>
#include <Controllers/AppRows.h>
#include <Interface/ApplicationIconProvider.h>
#include <Interface/PictureReader.h>

#include <algorithm>
#include <utility>

namespace tolvane {

ApplicationIconProvider::ApplicationIconProvider(std::shared_ptr<const FileManager> files)
    : QQuickImageProvider(Image, ForceAsynchronousImageLoading)
    , files_(std::move(files)) {}

QImage ApplicationIconProvider::requestImage(const QString& id, QSize* size,
                                             const QSize& requestedSize) {
    constexpr int usualSide = 64;
    constexpr int largestSide = 512;
    const int wanted = std::max(requestedSize.width(), requestedSize.height());
    const int side = wanted > 0 ? std::min(wanted, largestSide) : usualSide;
    const qsizetype slash = id.indexOf(u'/');
    QImage image = icon(id.mid(slash + 1), side);
    if (image.isNull()) {
        return IconProvider().requestImage(
            QStringLiteral("application-x-executable/") + id.left(slash), size, {side, side});
    }
    *size = image.size();
    return image;
}

QImage ApplicationIconProvider::icon(const QString& key, int side) const {
    const std::optional<FileURL> file = AppRows::iconFile(key);
    if (!file) {
        return {};
    }
    // One more byte, so that a file that is too large does not pass as its beginning.
    const Result<std::string, SystemError> bytes =
        files_->read(*file, PictureReader::largestFile + 1);
    return bytes ? PictureReader::read(QByteArray::fromStdString(*bytes), side) : QImage();
}

}
