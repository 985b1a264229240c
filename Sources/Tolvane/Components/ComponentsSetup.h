#pragma once

class QQmlEngine;

namespace tolvane {

/// What the components need of a program besides their QML: the icons, the figures and the import
/// path. Call it after the application exists and before QML is loaded.
void readyComponents(QQmlEngine& engine);

}
