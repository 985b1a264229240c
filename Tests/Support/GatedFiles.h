#pragma once

#include <Support/FaultyFiles.h>
#include <Support/Gate.h>

#include <memory>
#include <utility>

namespace tolvane {

/// Lets workers into `folder` only while the gate, which must outlive them, is open.
inline std::shared_ptr<const FileManager>
gated(Gate& gate, std::shared_ptr<const FileManager> files, const FileURL& folder) {
    return std::make_shared<FaultyFiles>(
        std::move(files),
        [&gate, folder](FileOperation, const FileURL& url) -> std::optional<SystemError> {
            if (url == folder) {
                gate.pass();
            }
            return std::nullopt;
        });
}

}
