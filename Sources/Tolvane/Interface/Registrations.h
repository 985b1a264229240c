#pragma once

#include <Controllers/ListModel.h>
#include <QtQml/qqml.h>

namespace tolvane {

// What QML knows of the controllers, which know nothing of QML.

struct ListModelInQML {
    Q_GADGET
    QML_FOREIGN(ListModel)
    QML_NAMED_ELEMENT(ListModel)
    QML_UNCREATABLE("Made by controllers")
};

}
