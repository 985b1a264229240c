#include <Services/CancellationFlag.h>

namespace tolvane {

void CancellationFlag::cancel() {
    const std::lock_guard lock(mutex_);
    flag_ = true;
}

bool CancellationFlag::isCancelled() const {
    const std::lock_guard lock(mutex_);
    return flag_;
}

}
