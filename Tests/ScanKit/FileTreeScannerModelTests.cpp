#include <ScanKit/FileTreeScanner.h>
#include <Support/SyntheticFiles.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tolvane {
namespace {

using Item = SyntheticItem;

/// What a scan comes to by the rules as one would tell them: kept files searched from the first to
/// the last, nothing shared, nothing saved.
class PlainScanner {
  public:
    explicit PlainScanner(const ScanOptions& options)
        : options_(options) {}

    FileNode walk(const FileURL& url, const Item& item, std::int64_t depth) {
        Folder folder;
        for (const Item& entry : item.children) {
            const FileURL below = url.appending(entry.name);
            if (depth >= options_.maxDepth) {
                break;
            }
            if (entry.values.isDirectory.value_or(false)) {
                takeDirectory(folder, walk(below, entry, depth + 1));
            } else {
                takeFile(folder, FileNode(below, entry.name, FileNode::Kind::regular,
                                          entry.values.totalFileAllocatedSize.value(), 0, false, {},
                                          {}, 0, 0, 0, false));
            }
        }
        folder.directories.insert(folder.directories.end(), folder.files.begin(),
                                  folder.files.end());
        return FileNode(url, item.name, FileNode::Kind::directory, 0, 0, false, {},
                        folder.directories, folder.hiddenBytes, folder.hiddenFiles,
                        folder.hiddenDirectories, folder.isTruncated);
    }

  private:
    struct Folder {
        std::vector<FileNode> directories;
        std::vector<FileNode> files;
        Bytes hiddenBytes = 0;
        std::int64_t hiddenFiles = 0;
        std::int64_t hiddenDirectories = 0;
        bool isTruncated = false;

        void hide(const FileNode& node) {
            hiddenBytes += node.totalAllocatedSize();
            hiddenFiles += node.fileCount();
            hiddenDirectories += node.directoryCount();
        }
    };

    void takeDirectory(Folder& folder, const FileNode& child) {
        if (directories_ < options_.maxRetainedDirectories) {
            ++directories_;
            folder.directories.push_back(child);
        } else {
            folder.hide(child);
            folder.isTruncated = true;
        }
    }

    void takeFile(Folder& folder, const FileNode& file) {
        const bool isKey = file.allocatedSize() >= options_.keyFileSizeThreshold;
        if (files_ >= options_.maxRetainedNodes &&
            !(isKey && largeFiles_ < options_.maxRetainedLargeFiles)) {
            folder.hide(file);
            folder.isTruncated = true;
            return;
        }
        folder.files.push_back(file);
        if (std::ssize(folder.files) > options_.maxRetainedFilesPerDirectory) {
            const auto smallest =
                std::ranges::min_element(folder.files, {}, &FileNode::allocatedSize);
            folder.hide(*smallest);
            folder.files.erase(smallest);
            return;
        }
        ++files_;
        largeFiles_ += isKey ? 1 : 0;
    }

    const ScanOptions& options_;
    std::int64_t files_ = 0;
    std::int64_t largeFiles_ = 0;
    std::int64_t directories_ = 1;
};

/// All that the rules decide of a node and of what lies below it.
std::string described(const FileNode& node) {
    std::string text = node.url().path() + (node.isDirectory() ? "/" : "");
    for (const std::int64_t number :
         {node.allocatedSize(), node.hiddenBytes(), node.hiddenFiles(), node.hiddenDirectories()}) {
        text += ' ' + std::to_string(number);
    }
    text += node.truncated() ? " truncated\n" : "\n";
    for (const FileNode& child : node.children()) {
        text += described(child);
    }
    return text;
}

class Random {
  public:
    explicit Random(unsigned seed)
        : engine_(seed) {}

    std::int64_t upTo(std::int64_t most) {
        return std::uniform_int_distribution<std::int64_t>(0, most)(engine_);
    }

    Item tree(std::string name, int depth) {
        Item item = Item::folder(std::move(name));
        const std::int64_t entries = upTo(14);
        for (std::int64_t number = 0; number < entries; ++number) {
            const std::string child = std::to_string(number);
            const bool isFolder = depth < 5 && upTo(3) == 0;
            item.children.push_back(isFolder ? tree(child, depth + 1) : Item::file(child, upTo(6)));
        }
        return item;
    }

    ScanOptions options() {
        ScanOptions options = fullScanOptions({});
        options.maxDepth = upTo(6);
        options.maxRetainedFilesPerDirectory = upTo(8) - 1;
        options.maxRetainedNodes = upTo(60);
        options.maxRetainedDirectories = upTo(25);
        options.keyFileSizeThreshold = upTo(7);
        options.maxRetainedLargeFiles = upTo(20);
        return options;
    }

  private:
    std::mt19937 engine_;
};

TEST(FileTreeScannerModel, keepsAndFoldsAsThePlainRulesDo) {
    for (unsigned seed = 0; seed < 3000; ++seed) {
        Random random(seed);
        const Item tree = random.tree("r", 0);
        const ScanOptions options = random.options();
        FileTreeScanner scanner(options, std::make_shared<SyntheticFiles>("/r", tree));
        const FileURL root("/r");
        ASSERT_EQ(described(scanner.scan(root).root),
                  described(PlainScanner(options).walk(root, tree, 0)))
            << "seed " << seed;
    }
}

}
}
