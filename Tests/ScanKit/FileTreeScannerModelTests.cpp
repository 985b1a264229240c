#include <ScanKit/FileTreeScanner.h>
#include <Support/SyntheticFiles.h>

#include <gtest/gtest.h>

#include <random>

namespace tolvane {
namespace {

using Item = SyntheticItem;

/// What one directory comes to, by the rules as one would tell them: kept files searched from the
/// first to the last, nothing shared, nothing saved.
struct PlainNode {
    std::string name;
    bool isDirectory = false;
    Bytes size = 0;
    Bytes hiddenBytes = 0;
    std::int64_t hiddenFiles = 0;
    std::int64_t hiddenDirectories = 0;
    bool truncated = false;
    std::vector<PlainNode> children = {};

    Bytes total() const {
        Bytes bytes = size + hiddenBytes;
        for (const PlainNode& child : children) {
            bytes += child.total();
        }
        return bytes;
    }
    std::int64_t count(bool directories) const {
        std::int64_t number =
            (isDirectory == directories ? 1 : 0) + (directories ? hiddenDirectories : hiddenFiles);
        for (const PlainNode& child : children) {
            number += child.count(directories);
        }
        return number;
    }
};

class PlainScanner {
  public:
    explicit PlainScanner(const ScanOptions& options)
        : options_(options) {}

    PlainNode walk(const Item& item, std::int64_t depth) {
        PlainNode node{.name = item.name, .isDirectory = true};
        std::vector<PlainNode> files;
        for (const Item& entry : item.children) {
            if (depth >= options_.maxDepth) {
                break;
            }
            if (entry.values.isDirectory.value_or(false)) {
                takeDirectory(node, walk(entry, depth + 1));
            } else {
                takeFile(
                    node, files,
                    {.name = entry.name, .size = entry.values.totalFileAllocatedSize.value_or(0)});
            }
        }
        node.children.insert(node.children.end(), files.begin(), files.end());
        return node;
    }

  private:
    void takeDirectory(PlainNode& node, PlainNode child) {
        if (directories_ < options_.maxRetainedDirectories) {
            ++directories_;
            node.children.push_back(std::move(child));
            return;
        }
        node.hiddenBytes += child.total();
        node.hiddenFiles += child.count(false);
        node.hiddenDirectories += child.count(true);
        node.truncated = true;
    }

    void takeFile(PlainNode& node, std::vector<PlainNode>& files, PlainNode file) {
        const bool isKey = file.size >= options_.keyFileSizeThreshold;
        if (files_ >= options_.maxRetainedNodes &&
            !(isKey && largeFiles_ < options_.maxRetainedLargeFiles)) {
            node.hiddenBytes += file.size;
            node.hiddenFiles += 1;
            node.truncated = true;
            return;
        }
        const auto before = static_cast<std::int64_t>(files.size());
        files.push_back(std::move(file));
        if (before >= options_.maxRetainedFilesPerDirectory) {
            auto smallest = files.begin();
            for (auto candidate = files.begin(); candidate != files.end(); ++candidate) {
                smallest = candidate->size < smallest->size ? candidate : smallest;
            }
            node.hiddenBytes += smallest->size;
            node.hiddenFiles += 1;
            files.erase(smallest);
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

void expectSame(const FileNode& node, const PlainNode& plain) {
    ASSERT_EQ(node.name(), plain.name);
    ASSERT_EQ(node.isDirectory(), plain.isDirectory);
    ASSERT_EQ(node.allocatedSize(), plain.size);
    ASSERT_EQ(node.hiddenBytes(), plain.hiddenBytes);
    ASSERT_EQ(node.hiddenFiles(), plain.hiddenFiles);
    ASSERT_EQ(node.hiddenDirectories(), plain.hiddenDirectories);
    ASSERT_EQ(node.truncated(), plain.truncated);
    ASSERT_EQ(node.children().size(), plain.children.size());
    for (std::size_t index = 0; index < plain.children.size(); ++index) {
        ASSERT_NO_FATAL_FAILURE(expectSame(node.children()[index], plain.children[index]));
    }
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
        const ScanOutcome outcome = scanner.scan(FileURL("/r"));
        ASSERT_NO_FATAL_FAILURE(expectSame(outcome.root, PlainScanner(options).walk(tree, 0)))
            << "seed " << seed;
    }
}

}
}
