#pragma once

#include <DuplicatesKit/Candidates.h>
#include <DuplicatesKit/ContentReader.h>
#include <DuplicatesKit/EqualFiles.h>
#include <DuplicatesKit/FilesAhead.h>
#include <DuplicatesKit/Runs.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// Compares the contents of candidates: first by fingerprints, then whole. A file is read once in
/// each pass, however many names it has, and not again where the fingerprint was all of it.
class Comparison {
  public:
    /// A candidate and the digest by which it is compared.
    struct Digested {
        Candidates::Position position;
        ContentReader::Reading reading;
    };

    /// All are borrowed. In `files` those of one size stand side by side, and among these the names
    /// of one file.
    Comparison(const FileManager& manager, const Candidates& files,
               const std::function<bool()>& isCancelled)
        : manager_(manager)
        , files_(files)
        , isCancelled_(isCancelled)
        , reader_(isCancelled) {}

    /// The fingerprints of the files that can be opened; none when it was cancelled.
    std::vector<Digested>
    fingerprinted(const std::function<void(std::int64_t fingerprintedFiles)>& progress);
    /// The files of equal content among those whose fingerprints are not unique. Cancelled, it
    /// gives those that are certain by then.
    EqualFiles confirmed(std::vector<Digested> alike);

    /// How many files the first pass came to.
    std::int64_t fingerprintedFiles() const { return fingerprintedFiles_; }
    /// The paths of the files whose digest may not be that of their content.
    const std::vector<std::string>& uncertain() const { return uncertain_; }

  private:
    using Reading = ContentReader::Reading;
    using Read = std::function<std::optional<Reading>(ReadableFile&)>;
    /// The file that was read last.
    struct Latest {
        Candidates::Position position;
        Reading reading;
        bool isCertain;
    };

    bool isStopped();
    void sortByFingerprint(std::vector<Digested>& alike);
    std::optional<Reading> readOnce(FilesAhead& ahead, std::size_t index,
                                    Candidates::Position position, const Read& read);
    bool isUnchanged(Candidates::Position position,
                     const Result<ResourceValues, SystemError>& values) const;
    /// Remembers the file that was read last if its digest cannot be relied on.
    void noteUnlessCertain();
    Run digested(std::vector<Digested>& alike, Run bucket, FilesAhead& ahead);
    void appendGroups(EqualFiles& equal, std::vector<Digested>& alike, Run bucket) const;

    const FileManager& manager_;
    const Candidates& files_;
    const std::function<bool()>& isCancelled_;
    ContentReader reader_;
    std::optional<Latest> latest_;
    bool isStopped_ = false;
    std::int64_t fingerprintedFiles_ = 0;
    std::vector<std::string> uncertain_;
};

}
