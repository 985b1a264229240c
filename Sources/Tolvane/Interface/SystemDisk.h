#pragma once

#include <HostKit/Machine.h>
#include <Services/Job.h>

#include <Controllers/Environment.h>
#include <Controllers/Published.h>
#include <QtQml/qqml.h>

#include <QString>
#include <QTimer>
#include <optional>

namespace tolvane {

/// How full the disk is that the system lies on, looked at anew every now and then.
class SystemDisk : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's entry")
    /// "210.4 GB of 500 GB free"; empty while not known.
    PUBLISHED(SystemDisk, QString, text)
    /// Of the disk that is used, 0 to 1.
    PUBLISHED(SystemDisk, double, usedFraction)

  public:
    explicit SystemDisk(const Environment& environment);

    void refresh();

  private:
    struct Nothing {};
    using Volume = std::optional<VolumeCapacity>;

    void apply(const Volume& volume);

    Job<Nothing, Volume> sampling_;
    QTimer timer_;
};

}
