#include <HostKit/Result.h>

#include <cerrno>
#include <system_error>

namespace tolvane {

std::string SystemError::message() const {
    return std::generic_category().message(code);
}

std::string SystemError::description() const {
    const bool refused = code == EPERM || code == EACCES;
    return refused ? "Operation not permitted" : message();
}

bool SystemError::isCancelled() const {
    return code == ECANCELED;
}

SystemError SystemError::last() {
    return {errno};
}

SystemError SystemError::cancelled() {
    return {ECANCELED};
}

}
