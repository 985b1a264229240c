#include <Controllers/Activity.h>
#include <Controllers/ShownText.h>

namespace tolvane {
namespace {

constexpr int refreshInterval = 250;

}

Activity::Activity(std::function<State()> state)
    : fraction_(-1)
    , state_(std::move(state)) {
    clock_.setInterval(refreshInterval);
    connect(&clock_, &QTimer::timeout, this, &Activity::refresh);
}

void Activity::setRunning(bool isRunning) {
    refresh();
    isRunning_ = isRunning;
    if (isRunning) {
        clock_.start();
    } else {
        clock_.stop();
    }
}

void Activity::refresh() {
    const State state = state_();
    title_ = state.title;
    pathText_ = state.pathText;
    countsText_ = state.countsText;
    elapsedText_ = clockText(state.elapsed);
    remainingText_ = state.remaining ? remainingTimeText(*state.remaining) : QString();
    fraction_ = state.fraction.value_or(-1);
}

}
