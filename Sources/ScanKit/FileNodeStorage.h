#pragma once

#include <ScanKit/FileNode.h>

#include <boost/smart_ptr/intrusive_ref_counter.hpp>

namespace tolvane {

/// Where nodes lie: the names of the kept items of one directory, and the way up.
struct FileNode::Folder : boost::intrusive_ref_counter<FileNode::Folder> {
    /// Null at the top of the chain.
    boost::intrusive_ptr<const Folder> parent;
    /// This folder's own name, within the parent's `names`; at the top its whole path, within
    /// `names`.
    std::uint32_t nameOffset = 0;
    std::uint32_t nameLength = 0;
    std::string names;

    std::string_view text(std::uint32_t offset, std::size_t length) const {
        return std::string_view(names).substr(offset, length);
    }
    void appendPath(std::string& path) const;
};

/// What hangs below a node.
struct FileNode::Contents : boost::intrusive_ref_counter<FileNode::Contents> {
    std::vector<FileNode> children;
    Bytes hiddenBytes = 0;
    std::int64_t hiddenFiles = 0;
    std::int64_t hiddenDirectories = 0;
};

}
