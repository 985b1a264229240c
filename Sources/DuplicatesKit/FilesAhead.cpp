#include <DuplicatesKit/FilesAhead.h>

#include <cerrno>

namespace tolvane {

FilesAhead::Opened FilesAhead::open(std::size_t index) {
    // A file that is not wanted after all must not hold up those behind it.
    while (!waiting_.empty() && waiting_.front().index < index) {
        waiting_.pop_front();
    }
    openAhead();
    if (waiting_.empty() || waiting_.front().index != index) {
        return files_.openFile(plan_.url(index));
    }
    Opened file = std::move(waiting_.front().file);
    waiting_.pop_front();
    return file;
}

void FilesAhead::openAhead() {
    while (next_ < plan_.count && waiting_.size() < window) {
        if (!plan_.isRead(next_)) {
            ++next_;
            continue;
        }
        Opened file = files_.openFile(plan_.url(next_));
        const bool isLackOfDescriptors =
            !file && (file.error().code == EMFILE || file.error().code == ENFILE);
        if (isLackOfDescriptors && !waiting_.empty()) {
            return;
        }
        if (file) {
            plan_.prefetch(next_, **file);
        }
        waiting_.push_back({next_++, std::move(file)});
    }
}

}
