#pragma once

#include <Support/Gate.h>

#include <ControllerSupport/ControllerHome.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <functional>
#include <memory>
#include <vector>

namespace tolvane {

/// A controller on a home of its own, the rows of which are watched for breaches of what views
/// rely on.
template <class Controller>
class ControllerTest : public testing::Test {
  protected:
    /// Makes the controller anew, with these files or those of the home.
    Controller& start(const std::shared_ptr<const FileManager>& files = nullptr) {
        stop();
        environment.files = files ? files : home.files;
        controller = std::make_unique<Controller>(environment);
        if constexpr (requires { controller->rows(); }) {
            watch(controller->rows());
        }
        return *controller;
    }
    void watch(QAbstractItemModel* rows) {
        testers.push_back(std::make_unique<QAbstractItemModelTester>(
            rows, QAbstractItemModelTester::FailureReportingMode::Fatal));
    }
    void stop() {
        testers.clear();
        controller.reset();
    }
    /// Destroys the controller a thousand times in the midst of `begin`, which makes it, and
    /// one of `more`.
    void destroyAmidst(const std::function<void()>& begin,
                       const std::vector<std::function<void()>>& more) {
        constexpr std::size_t rounds = 1000;
        for (std::size_t round = 0; round < rounds; ++round) {
            begin();
            more[round % more.size()]();
            stop();
        }
        processEvents();
    }

    /// Outlives the workers, which may come to it late.
    Gate gate;
    ControllerHome home;
    Environment environment = home.environment();
    std::unique_ptr<Controller> controller;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
};

}
