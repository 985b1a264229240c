#include "Shot.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tolvane {

Step all(std::vector<Step> steps) {
    return [steps = std::move(steps)](Scene& scene) {
        for (const Step& step : steps) {
            step(scene);
        }
    };
}

Step show(const QString& module) {
    return [module](Scene& scene) { scene.harness.showModule(module); };
}

Step click(const QString& objectName) {
    return [objectName](Scene& scene) { scene.harness.click(objectName); };
}

Step press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    return [key, modifiers](Scene& scene) { scene.harness.press(key, modifiers); };
}

Step type(const QString& text) {
    return [text](Scene& scene) { scene.harness.type(text); };
}

Step wait(int milliseconds) {
    return [milliseconds](Scene&) { QTest::qWait(milliseconds); };
}

Step until(std::function<bool(Scene& scene)> condition) {
    return [condition = std::move(condition)](Scene& scene) {
        EXPECT_TRUE(Harness::eventually([&] { return condition(scene); }));
    };
}

void untilHeld(Scene& scene) {
    EXPECT_TRUE(Harness::eventually([&scene] { return scene.gate.isReached(); }));
    QTest::qWait(1200);
}

void goOn(Scene& scene) {
    scene.gate.open();
}

Shots after(const std::function<void(const TemporaryHome& home)>& precede, Shots shots) {
    for (Shot& shot : shots) {
        shot.precede = shot.precede ? shot.precede : precede;
    }
    return shots;
}

}
