#pragma once

#include <HostKit/FileURL.h>

#include <Controllers/Published.h>
#include <QtQml/qqml.h>

#include <QString>
#include <QUrl>
#include <functional>

namespace tolvane {

/// A question for a folder, and its way back from the dialog that the window shows for it.
class FolderChooser : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's entry")
    /// While the dialog is to be seen.
    PUBLISHED(FolderChooser, bool, isOpen)
    PUBLISHED(FolderChooser, QString, title)
    /// Where the dialog begins.
    PUBLISHED(FolderChooser, QUrl, start)

  public:
    /// A second question replaces the first.
    void ask(const QString& title, const FileURL& start,
             std::function<void(const FileURL&)> onChosen);
    Q_INVOKABLE void accept(const QUrl& folder);
    Q_INVOKABLE void reject();

  private:
    std::function<void(const FileURL&)> onChosen_;
};

}
