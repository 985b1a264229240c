#include <PerformanceKit/MaintenanceOutcome.h>

#include <utility>

namespace tolvane {

MaintenanceOutcome MaintenanceOutcome::success(std::string message) {
    return {Case::success, std::move(message)};
}

MaintenanceOutcome MaintenanceOutcome::failure(std::string message) {
    return {Case::failure, std::move(message)};
}

}
