#include <DuplicatesKit/Comparison.h>
#include <DuplicatesKit/SortInPieces.h>

#include <algorithm>
#include <tuple>

namespace tolvane {
namespace {

using Position = Candidates::Position;
using Extent = ContentReader::Extent;

bool isSameDigest(const Comparison::Digested& a, const Comparison::Digested& b) {
    return a.reading.digest == b.reading.digest;
}

/// Never so of files of different sizes: the size is part of one kind of fingerprint, and the other
/// is the digest of the content.
bool isSameFingerprint(const Comparison::Digested& a, const Comparison::Digested& b) {
    return a.reading.extent == b.reading.extent && isSameDigest(a, b);
}

/// Names of one file stay beside each other.
bool isBefore(const Comparison::Digested& a, const Comparison::Digested& b) {
    return std::tie(a.reading.extent, a.reading.digest, a.position) <
           std::tie(b.reading.extent, b.reading.digest, b.position);
}

}

std::vector<Comparison::Digested>
Comparison::fingerprinted(const std::function<void(std::int64_t)>& progress) {
    std::vector<Digested> result;
    result.reserve(files_.count());
    const auto positionOf = [](std::size_t index) { return static_cast<Position>(index); };
    FilesAhead ahead(manager_,
                     {files_.count(),
                      [&](std::size_t index) {
                          const Position position = positionOf(index);
                          return position == 0 || !files_.isSameFile(position - 1, position);
                      },
                      [&](std::size_t index) { return files_.url(positionOf(index)); },
                      [&](std::size_t index, ReadableFile& file) {
                          ContentReader::prefetchFingerprint(file, files_.size(positionOf(index)));
                      }});
    for (std::size_t index = 0; index < files_.count(); ++index) {
        if (isStopped()) {
            return {};
        }
        ++fingerprintedFiles_;
        if (progress) {
            progress(fingerprintedFiles_);
        }
        const Position position = positionOf(index);
        const auto reading = readOnce(ahead, index, position, [&](ReadableFile& file) {
            return std::optional(reader_.fingerprint(file, files_.size(position)));
        });
        if (reading) {
            result.push_back({position, *reading});
        }
        // Of other files nothing depends on the fingerprint but that they are read again.
        if (reading && reading->extent == Extent::whole) {
            noteUnlessCertain();
        }
    }
    return result;
}

EqualFiles Comparison::confirmed(std::vector<Digested> alike) {
    sortByFingerprint(alike);
    removeSingles(alike, isSameFingerprint);
    latest_.reset();
    FilesAhead ahead(
        manager_, {alike.size(),
                   [&](std::size_t index) {
                       return alike[index].reading.extent != Extent::whole &&
                              (index == 0 || !files_.isSameFile(alike[index - 1].position,
                                                                alike[index].position));
                   },
                   [&](std::size_t index) { return files_.url(alike[index].position); },
                   [](std::size_t, ReadableFile& file) { ContentReader::prefetchContent(file); }});
    EqualFiles equal;
    for (std::size_t start = 0; start < alike.size() && !isStopped_;) {
        const Run bucket = runAt(alike, start, alike.size(), isSameFingerprint);
        start = bucket.end;
        appendGroups(equal, alike, digested(alike, bucket, ahead));
    }
    return equal;
}

/// Once stopped it stays so, whatever the test says later.
bool Comparison::isStopped() {
    isStopped_ = isStopped_ || (isCancelled_ && isCancelled_());
    return isStopped_;
}

/// Files of equal fingerprints side by side. Large files stay first: they are what is worth most
/// should it be cancelled.
void Comparison::sortByFingerprint(std::vector<Digested>& alike) {
    const auto isOfOneSize = [&](const Digested& a, const Digested& b) {
        return files_.size(a.position) == files_.size(b.position);
    };
    for (std::size_t start = 0; start < alike.size() && !isStopped_;) {
        const Run run = runAt(alike, start, alike.size(), isOfOneSize);
        start = run.end;
        const auto first = alike.begin() + static_cast<std::ptrdiff_t>(run.start);
        sortInPieces(first, first + static_cast<std::ptrdiff_t>(run.count()), isBefore,
                     [this] { return isStopped(); });
    }
}

/// What `read` gives of the file, or gave when it was met under another name just before. Absent
/// when it cannot be opened or when reading was cancelled.
std::optional<Comparison::Reading> Comparison::readOnce(FilesAhead& ahead, std::size_t index,
                                                        Position position, const Read& read) {
    const bool isKnown = latest_ && files_.isSameFile(latest_->position, position) &&
                         isUnchanged(position, manager_.values(files_.url(position)));
    if (!isKnown) {
        latest_.reset();
        const FilesAhead::Opened file = ahead.open(index);
        const std::optional<Reading> reading = file ? read(**file) : std::nullopt;
        if (!reading) {
            isStopped_ = isStopped_ || file.has_value();
            return std::nullopt;
        }
        const bool isCertain =
            reading->extent == Extent::whole && isUnchanged(position, (*file)->values());
        latest_ = Latest{position, *reading, isCertain};
    }
    latest_->position = position;
    return latest_->reading;
}

bool Comparison::isUnchanged(Position position,
                             const Result<ResourceValues, SystemError>& values) const {
    return values && files_.file(position).isUnchanged(*values);
}

void Comparison::noteUnlessCertain() {
    if (!latest_->isCertain) {
        uncertain_.push_back(files_.url(latest_->position).path());
    }
}

/// Digests the contents of the files in the bucket. What is left of it are those that have one.
Run Comparison::digested(std::vector<Digested>& alike, Run bucket, FilesAhead& ahead) {
    std::size_t kept = bucket.start;
    for (std::size_t index = bucket.start; index < bucket.end && !isStopped(); ++index) {
        Digested file = alike[index];
        if (file.reading.extent != Extent::whole) {
            const auto reading = readOnce(ahead, index, file.position, [&](ReadableFile& opened) {
                return reader_.content(opened);
            });
            if (!reading) {
                continue;
            }
            file.reading = *reading;
            noteUnlessCertain();
        }
        alike[kept++] = file;
    }
    return {bucket.start, kept};
}

void Comparison::appendGroups(EqualFiles& equal, std::vector<Digested>& alike, Run bucket) const {
    const auto at = [&](std::size_t index) {
        return alike.begin() + static_cast<std::ptrdiff_t>(index);
    };
    std::sort(at(bucket.start), at(bucket.end), [](const Digested& a, const Digested& b) {
        return a.reading.digest < b.reading.digest;
    });
    for (std::size_t start = bucket.start; start < bucket.end;) {
        const Run run = runAt(alike, start, bucket.end, isSameDigest);
        start = run.end;
        if (run.count() < 2) {
            continue;
        }
        const Digested& first = alike[run.start];
        equal.groups.push_back({first.reading.digest, files_.size(first.position),
                                static_cast<std::uint32_t>(equal.files.size()),
                                static_cast<std::uint32_t>(run.count())});
        for (std::size_t index = run.start; index < run.end; ++index) {
            equal.files.push_back(files_.rank(alike[index].position));
        }
        std::sort(equal.files.end() - static_cast<std::ptrdiff_t>(run.count()), equal.files.end());
    }
}

}
