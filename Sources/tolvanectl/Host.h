#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/FileURL.h>
#include <HostKit/HostLayout.h>
#include <HostKit/Result.h>

#include <memory>
#include <string>
#include <vector>

namespace tolvane {

/// The machine that the commands work on.
struct Host {
    HostLayout layout;
    std::shared_ptr<const FileManager> files;

    static Host current();

    /// What a path on the command line names: absolute, standardised, links not resolved. The
    /// error, for people, is a working directory that cannot be told.
    Result<FileURL, std::string> place(const std::string& argument) const;
    Result<std::vector<FileURL>, std::string>
    places(const std::vector<std::string>& arguments) const;
};

}
