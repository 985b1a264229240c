#include <Services/ByteFormat.h>

#include <Interface/SystemDisk.h>

#include <algorithm>
#include <chrono>

namespace tolvane {
namespace {

constexpr std::chrono::seconds refreshInterval{30};

}

SystemDisk::SystemDisk(const Environment& environment)
    : sampling_(environment.workers, 0, {}, [this](const Volume& volume) { apply(volume); }) {
    connect(&timer_, &QTimer::timeout, this, &SystemDisk::refresh);
    timer_.start(refreshInterval);
    refresh();
}

void SystemDisk::refresh() {
    // A disk that does not answer is not asked again.
    if (!sampling_.isRunning()) {
        sampling_.start([](const Report<Nothing>&, const std::function<bool()>&) {
            return Machine::volume(FileURL("/"));
        });
    }
}

void SystemDisk::apply(const Volume& volume) {
    if (!volume || volume->total <= 0) {
        text_ = QString();
        usedFraction_ = 0;
        return;
    }
    const Bytes available = volume->available.value_or(volume->total);
    const double freeShare = static_cast<double>(available) / static_cast<double>(volume->total);
    text_ = QString::fromStdString(ByteFormat::text(available) + " of " +
                                   ByteFormat::text(volume->total) + " free");
    usedFraction_ = std::clamp(1 - freeShare, 0.0, 1.0);
}

}
