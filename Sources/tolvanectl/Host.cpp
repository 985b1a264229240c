#include "Host.h"

#include <filesystem>

namespace tolvane {

Host Host::current() {
    HostLayout layout = HostLayout::current();
    std::shared_ptr<const FileManager> files = systemFileManager(layout);
    return {std::move(layout), std::move(files)};
}

Result<FileURL, std::string> Host::place(const std::string& argument) const {
    std::error_code error;
    std::string directory;
    if (!argument.starts_with('/')) {
        directory = std::filesystem::current_path(error).string();
    }
    if (error) {
        return tl::unexpected("Could not find the working directory: " + error.message());
    }
    return layout.underHome(FileURL::absolute(argument, directory).standardized());
}

Result<std::vector<FileURL>, std::string>
Host::places(const std::vector<std::string>& arguments) const {
    std::vector<FileURL> urls;
    urls.reserve(arguments.size());
    for (const std::string& argument : arguments) {
        Result<FileURL, std::string> url = place(argument);
        if (!url) {
            return tl::unexpected(std::move(url.error()));
        }
        urls.push_back(std::move(*url));
    }
    return urls;
}

}
