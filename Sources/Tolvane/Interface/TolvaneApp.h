#pragma once

#include <Controllers/ListModel.h>
#include <QtQml/qqml.h>

namespace tolvane {

class TolvaneApp : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's entry")
    PUBLISHED(TolvaneApp, bool, isBusy)
};

}
