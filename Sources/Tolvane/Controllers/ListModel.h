#pragma once

#include <Controllers/Published.h>

#include <QAbstractListModel>

namespace tolvane {

/// The base of all lists that screens show: a list model that tells its length as a property.
class ListModel : public QAbstractListModel {
    Q_OBJECT
    PUBLISHED(ListModel, int, count)

  protected:
    using QAbstractListModel::QAbstractListModel;
    void publishCount() { count_ = rowCount(); }
};

}
