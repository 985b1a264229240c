/// What a scan's result costs before it can be shown, and each click on it afterwards, for the most
/// nodes that a scan keeps: 250,000 folders and 200,000 files. Goals: 100 ms to prepare it, off the
/// main thread; 1 ms a toggle, the new total and the state of the root read.

#include <ArborviewKit/SelectionModel.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>

namespace tolvane {
namespace {

constexpr std::int64_t folderCount = 250'000;
constexpr std::int64_t fileCount = 200'000;

FileNode madeNode(FileNode::Kind kind, Bytes size, std::vector<FileNode> children) {
    return FileNode(FileURL("/made"), "made", kind, size, size, false, std::nullopt,
                    std::move(children), 0, 0, 0, false);
}

/// A folder with `folders` folders below it, at most `width` directly in it, and its share of the
/// files.
FileNode madeFolder(std::int64_t folders, std::int64_t width, std::int64_t& filesLeft,
                    std::int64_t& foldersLeft) {
    std::vector<FileNode> children;
    const std::int64_t direct = std::min(folders, width);
    for (std::int64_t i = 0; i < direct; ++i) {
        const std::int64_t left = folders - direct;
        const std::int64_t share = left / direct + (i < left % direct ? 1 : 0);
        children.push_back(madeFolder(share, width, filesLeft, foldersLeft));
    }
    const std::int64_t files = filesLeft / foldersLeft;
    for (std::int64_t i = 0; i < files; ++i) {
        children.push_back(madeNode(FileNode::Kind::regular, 4096, {}));
    }
    filesLeft -= files;
    foldersLeft -= 1;
    return madeNode(FileNode::Kind::directory, 0, std::move(children));
}

FileNode madeTree(std::int64_t width) {
    std::int64_t filesLeft = fileCount;
    std::int64_t foldersLeft = folderCount;
    return madeFolder(folderCount - 1, width, filesLeft, foldersLeft);
}

/// Ten folders to a folder, or all of them in one.
const std::shared_ptr<const ScannedTree>& tree(const benchmark::State& state) {
    static const auto branching = ScannedTree::of(madeTree(10));
    static const auto flat = ScannedTree::of(madeTree(folderCount));
    return state.range(0) == 10 ? branching : flat;
}

Identifier idAt(const ScannedTree& tree, TreeIndex::Position position) {
    return tree.index().node(position).id();
}

void toggleAndLook(benchmark::State& state, SelectionModel& model, const Identifier& id) {
    const Identifier root = tree(state)->root().id();
    while (state.KeepRunning()) {
        model.toggle(id);
        benchmark::DoNotOptimize(model.selectedSize());
        benchmark::DoNotOptimize(model.state(root));
    }
}

void prepareTheTree(benchmark::State& state) {
    const FileNode root = tree(state)->root();
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(ScannedTree::of(root));
    }
    state.counters["nodes"] = tree(state)->index().count();
}

void loadThePreparedTree(benchmark::State& state) {
    SelectionModel model;
    while (state.KeepRunning()) {
        model.load(tree(state));
    }
}

void findAnID(benchmark::State& state) {
    const TreeIndex& index = tree(state)->index();
    std::mt19937 random(1);
    std::uniform_int_distribution<TreeIndex::Position> anywhere(0, index.count() - 1);
    std::vector<Identifier> ids(1024);
    for (Identifier& id : ids) {
        id = idAt(*tree(state), anywhere(random));
    }
    std::size_t next = 0;
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(index.find(ids[next++ % ids.size()]));
    }
}

void toggleALeaf(benchmark::State& state) {
    SelectionModel model;
    model.load(tree(state));
    toggleAndLook(state, model, idAt(*tree(state), tree(state)->index().count() - 1));
}

void toggleABigFolder(benchmark::State& state) {
    SelectionModel model;
    model.load(tree(state));
    toggleAndLook(state, model, idAt(*tree(state), 1));
}

void toggleTheRoot(benchmark::State& state) {
    SelectionModel model;
    model.load(tree(state));
    toggleAndLook(state, model, tree(state)->root().id());
}

/// A leaf among as many ticks as do not merge: every other node of those without children.
void toggleALeafAmongMany(benchmark::State& state) {
    SelectionModel model;
    model.load(tree(state));
    const TreeIndex& index = tree(state)->index();
    for (TreeIndex::Position position = 0; position < index.count(); position += 2) {
        if (index.childCounts()[position] == 0) {
            model.toggle(idAt(*tree(state), position));
        }
    }
    toggleAndLook(state, model, idAt(*tree(state), index.count() - 1));
    state.counters["ticked"] = static_cast<double>(model.selectedIDs().size());
}

/// A leaf in a tree that is ticked as a whole, so that nothing above it can be skipped.
void toggleALeafUnderATickedRoot(benchmark::State& state) {
    SelectionModel model;
    model.load(tree(state));
    model.selectAll();
    toggleAndLook(state, model, idAt(*tree(state), tree(state)->index().count() - 1));
}

void shapes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("width")->Arg(10)->Arg(folderCount);
}

BENCHMARK(prepareTheTree)->Apply(shapes)->Unit(benchmark::kMillisecond);
BENCHMARK(loadThePreparedTree)->Apply(shapes)->Unit(benchmark::kMicrosecond);
BENCHMARK(findAnID)->Apply(shapes)->Unit(benchmark::kMicrosecond);
BENCHMARK(toggleALeaf)->Apply(shapes)->Unit(benchmark::kMicrosecond);
BENCHMARK(toggleABigFolder)->Apply(shapes)->Unit(benchmark::kMicrosecond);
BENCHMARK(toggleTheRoot)->Apply(shapes)->Unit(benchmark::kMicrosecond);
BENCHMARK(toggleALeafAmongMany)->Apply(shapes)->Unit(benchmark::kMicrosecond);
BENCHMARK(toggleALeafUnderATickedRoot)->Apply(shapes)->Unit(benchmark::kMicrosecond);

}
}

BENCHMARK_MAIN();
