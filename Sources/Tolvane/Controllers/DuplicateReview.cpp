#include <Services/CountFormat.h>

#include <Controllers/DuplicateReview.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>
#include <utility>

namespace tolvane::DuplicateReview {
namespace {

using Position = DuplicateIndex::Position;
using Values = Result<ResourceValues, SystemError>;

void append(std::string& text, const std::string& sentence) {
    text += (text.empty() || sentence.empty() ? "" : "; ") + sentence;
}

/// How a file differs from what was compared; empty when it does not.
std::string differenceOf(const DuplicateFile& file, const Values& now) {
    if (!now) {
        const bool isGone = now.error().code == ENOENT || now.error().code == ENOTDIR;
        return isGone ? "is gone" : "cannot be looked at: " + now.error().description();
    }
    if (file.isUnchanged(*now)) {
        return {};
    }
    if (file.identity != now->identity) {
        return "was replaced since it was compared";
    }
    if (file.size != now->fileSize || file.modified != now->contentModificationDate) {
        return "changed since it was compared";
    }
    return "may have changed since it was compared";
}

/// One group of which something is to be removed.
class GroupReview {
  public:
    GroupReview(const DuplicateIndex& index, const FileManager& files, std::size_t group,
                const std::vector<bool>& isReviewed)
        : index_(index)
        , files_(files)
        , first_(index.first(group))
        , end_(index.end(group))
        , names_(end_ - first_) {
        for (Position position = first_; position < end_; ++position) {
            Names& names = namesOf(position);
            if (isReviewed[position]) {
                ++names.reviewed;
            } else if (!names.staying) {
                names.staying = position;
            }
        }
    }

    /// What is wrong with all copies that would stay; empty when one of them is as it was.
    std::string staying() {
        std::string reason;
        for (const Names& names : names_) {
            if (!names.staying) {
                continue;
            }
            const std::string doubt = doubtAbout(*names.staying, values(*names.staying));
            if (doubt.empty()) {
                return {};
            }
            if (reason.empty()) {
                reason = nameOf(*names.staying) + ", which would stay, " + doubt;
            }
        }
        return reason.empty() ? "no copy would stay" : reason;
    }

    bool losesAll() const {
        return std::none_of(names_.begin(), names_.end(),
                            [](const Names& names) { return names.staying.has_value(); });
    }

    /// What is to be said of a file that is to be removed.
    std::string warning(Position position) {
        const Values now = values(position);
        if (!now) {
            // The sheet tells of rows that are gone.
            return {};
        }
        std::string text = doubtAbout(position, now);
        const Names& names = namesOf(position);
        if (names.staying) {
            append(text, "is the same file as " + nameOf(*names.staying) + ", frees nothing");
        } else if (now->linkCount && *now->linkCount > names.reviewed) {
            append(text, "has other names (hard links), frees nothing");
        }
        return text;
    }

    std::string text() const {
        return nameOf(first_) + " (" + CountFormat::grouped(end_ - first_) + " copies)";
    }

  private:
    /// Of one file.
    struct Names {
        std::int64_t reviewed = 0;
        std::optional<Position> staying;
    };

    Names& namesOf(Position position) { return names_[index_.original(position) - first_]; }
    std::string nameOf(Position position) const {
        return std::string(index_.file(position).url.lastPathComponent());
    }
    Values values(Position position) const { return files_.values(index_.file(position).url); }
    std::string doubtAbout(Position position, const Values& now) const {
        std::string doubt = differenceOf(index_.file(position), now);
        if (index_.isUncertain(position)) {
            append(doubt, "changed or could not be read whole when it was compared");
        }
        return doubt;
    }

    const DuplicateIndex& index_;
    const FileManager& files_;
    const Position first_;
    const Position end_;
    /// At the place of the first name of each file.
    std::vector<Names> names_;
};

std::string losing(const std::vector<std::string>& groups) {
    constexpr std::size_t named = 3;
    std::string text;
    for (std::size_t i = 0; i < std::min(groups.size(), named); ++i) {
        text += (i == 0 ? "" : ", ") + groups[i];
    }
    if (groups.size() > named) {
        text += " and " + CountFormat::grouped(static_cast<std::int64_t>(groups.size() - named)) +
                " more";
    }
    return text.empty() ? text : "Every copy would be removed of " + text + ".";
}

}

Removal::Warnings warnings(const DuplicateIndex& index, const FileManager& files,
                           const std::vector<ReviewItem>& items,
                           const std::function<bool()>& isCancelled) {
    std::vector<bool> isReviewed(index.fileCount());
    for (const ReviewItem& item : items) {
        if (const std::optional<Position> position = index.find(item.id)) {
            isReviewed[*position] = true;
        }
    }
    Removal::Warnings warnings;
    std::vector<std::string> lost;
    for (std::size_t group = 0; group < index.groups().size(); ++group) {
        const auto begin = isReviewed.begin() + index.first(group);
        if (std::find(begin, isReviewed.begin() + index.end(group), true) ==
            isReviewed.begin() + index.end(group)) {
            continue;
        }
        GroupReview review(index, files, group, isReviewed);
        if (review.losesAll()) {
            lost.push_back(review.text());
        }
        const std::string staying = review.staying();
        for (Position position = index.first(group); position < index.end(group); ++position) {
            if (isCancelled()) {
                return warnings;
            }
            if (isReviewed[position]) {
                std::string text = review.warning(position);
                append(text, staying);
                if (!text.empty()) {
                    warnings.rows[index.file(position).id()] = std::move(text);
                }
            }
        }
    }
    warnings.all = losing(lost);
    return warnings;
}

}
