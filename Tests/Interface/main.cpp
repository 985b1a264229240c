#include <Interface/MainWindow.h>
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QtQml/QQmlEngineExtensionPlugin>

Q_IMPORT_QML_PLUGIN(TolvanePlugin)
Q_IMPORT_QML_PLUGIN(Tolvane_ComponentsPlugin)

int main(int argumentCount, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QGuiApplication application(argumentCount, arguments);
    tolvane::MainWindow::prepareApplication();
    ::testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
