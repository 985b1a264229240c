#include "QuickTestSetup.h"

#include <QtQml/QQmlEngineExtensionPlugin>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(Tolvane_ComponentsPlugin)

using tolvane::QuickTestSetup;

QUICK_TEST_MAIN_WITH_SETUP(components, QuickTestSetup)
