#pragma once

#include <Controllers/AccessStatus.h>
#include <Controllers/Activity.h>
#include <Controllers/AppDetail.h>
#include <Controllers/BrightpassViewModel.h>
#include <Controllers/DuplicatesModel.h>
#include <Controllers/DuplicatesViewModel.h>
#include <Controllers/FolderChooser.h>
#include <Controllers/FolderModel.h>
#include <Controllers/Inspector.h>
#include <Controllers/ListModel.h>
#include <Controllers/PerformanceViewModel.h>
#include <Controllers/PortsViewModel.h>
#include <Controllers/Removal.h>
#include <Controllers/ScanViewModel.h>
#include <Controllers/SettingsViewModel.h>
#include <Controllers/Ui.h>
#include <Controllers/UninstallerViewModel.h>
#include <QtQml/qqml.h>

// What QML knows of the controllers, which know nothing of QML.

namespace tolvane {

struct AccessStatusInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::AccessStatus)
    QML_NAMED_ELEMENT(AccessStatus)
    QML_UNCREATABLE("Made by the program's entry")
};

struct ActivityInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::Activity)
    QML_NAMED_ELEMENT(Activity)
    QML_UNCREATABLE("Made by controllers")
};

struct AppDetailInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::AppDetail)
    QML_NAMED_ELEMENT(AppDetail)
    QML_UNCREATABLE("Made by controllers")
};

struct BrightpassViewModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::BrightpassViewModel)
    QML_NAMED_ELEMENT(BrightpassViewModel)
    QML_UNCREATABLE("Made by the program's entry")
};

struct DuplicatesModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::DuplicatesModel)
    QML_NAMED_ELEMENT(DuplicatesModel)
    QML_UNCREATABLE("Made by controllers")
};

struct DuplicatesViewModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::DuplicatesViewModel)
    QML_NAMED_ELEMENT(DuplicatesViewModel)
    QML_UNCREATABLE("Made by the program's entry")
};

struct FolderChooserInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::FolderChooser)
    QML_NAMED_ELEMENT(FolderChooser)
    QML_UNCREATABLE("Made by the program's entry")
};

struct FolderModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::FolderModel)
    QML_NAMED_ELEMENT(FolderModel)
    QML_UNCREATABLE("Made by controllers")
};

/// "Inspector" is the screen's part that shows one.
struct InspectorInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::Inspector)
    QML_NAMED_ELEMENT(InspectedItem)
    QML_UNCREATABLE("Made by controllers")
};

struct ListModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::ListModel)
    QML_NAMED_ELEMENT(Records)
    QML_UNCREATABLE("Made by controllers")
};

struct PerformanceViewModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::PerformanceViewModel)
    QML_NAMED_ELEMENT(PerformanceViewModel)
    QML_UNCREATABLE("Made by the program's entry")
};

struct PortsViewModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::PortsViewModel)
    QML_NAMED_ELEMENT(PortsViewModel)
    QML_UNCREATABLE("Made by the program's entry")
};

struct RemovalInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::Removal)
    QML_NAMED_ELEMENT(Removal)
    QML_UNCREATABLE("Made by controllers")
};

struct ScanViewModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::ScanViewModel)
    QML_NAMED_ELEMENT(ScanViewModel)
    QML_UNCREATABLE("Made by the program's entry")
};

struct SettingsViewModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::SettingsViewModel)
    QML_NAMED_ELEMENT(SettingsViewModel)
    QML_UNCREATABLE("Made by the program's entry")
};

namespace UiInQML {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(tolvane::Ui)
QML_NAMED_ELEMENT(Ui)
}

struct UninstallerViewModelInQML {
    Q_GADGET
    QML_FOREIGN(tolvane::UninstallerViewModel)
    QML_NAMED_ELEMENT(UninstallerViewModel)
    QML_UNCREATABLE("Made by the program's entry")
};

}
