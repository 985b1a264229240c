#include <Components/ComponentsSetup.h>

#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickStyle>
#include <QQuickView>
#include <QTest>
#include <QtQml/QQmlEngineExtensionPlugin>
#include <cstdio>

Q_IMPORT_QML_PLUGIN(Tolvane_ComponentsPlugin)

// Draws every page of the gallery in light and dark into PNGs, to be looked at.
// Usage: components-gallery FOLDER [PAGE...]; QT_SCALE_FACTOR=2 draws them at 200 %.
namespace {

bool draw(const QString& page, bool isDark, const QString& file) {
    QQuickView view;
    tolvane::readyComponents(*view.engine());
    // A qmldir that lists the working copy is drawn without a build.
    if (qEnvironmentVariableIsSet("QML_IMPORT_PATH")) {
        view.engine()->addImportPath(qEnvironmentVariable("QML_IMPORT_PATH"));
    }
    view.setInitialProperties({{QStringLiteral("isDark"), isDark}});
    view.setSource(QUrl::fromLocalFile(page));
    view.show();
    view.requestActivate();
    for (const QQmlError& error : view.errors()) {
        std::fprintf(stderr, "%s\n", qPrintable(error.toString()));
    }
    if (view.status() != QQuickView::Ready || !QTest::qWaitForWindowActive(&view)) {
        return false;
    }
    // Popups come in and tooltips wait before they are seen.
    QTest::qWait(400);
    return view.grabWindow().save(file);
}

}

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QGuiApplication application(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(14);
    QGuiApplication::setFont(font);
    const QStringList arguments = QGuiApplication::arguments();
    const QDir target(arguments.value(1, QStringLiteral("gallery")));
    bool allDrawn = target.mkpath(QStringLiteral("."));
    const QDir pages(QStringLiteral(GALLERY_PAGES));
    for (const QString& page : pages.entryList({QStringLiteral("*Page.qml")})) {
        const QString name = page.chopped(8);
        if (arguments.size() > 2 && !arguments.mid(2).contains(name)) {
            continue;
        }
        allDrawn =
            draw(pages.filePath(page), false, target.filePath(name + "-light.png")) && allDrawn;
        allDrawn =
            draw(pages.filePath(page), true, target.filePath(name + "-dark.png")) && allDrawn;
    }
    if (!allDrawn) {
        std::fputs("Not every page could be drawn\n", stderr);
    }
    return allDrawn ? 0 : 1;
}
