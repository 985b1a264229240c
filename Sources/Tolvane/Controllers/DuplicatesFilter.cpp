#include <Controllers/DuplicatesFilter.h>
#include <Controllers/ShownText.h>

#include <algorithm>

namespace tolvane {
namespace {

bool isASCII(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar each) { return each.unicode() < 0x80; });
}

/// Whether a path looks to people as its bytes say, in ASCII.
bool isPlain(const std::string& path) {
    return std::all_of(path.begin(), path.end(),
                       [](char each) { return each >= ' ' && each <= '~'; });
}

char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}

DuplicatesFilter::DuplicatesFilter(const QString& wanted)
    : wanted_(wanted)
    , bytes_(isASCII(wanted.toCaseFolded()) ? wanted.toCaseFolded().toStdString() : std::string()) {
}

bool DuplicatesFilter::accepts(const DuplicateGroup& group) const {
    return std::any_of(group.files.begin(), group.files.end(),
                       [this](const DuplicateFile& file) { return accepts(file.url); });
}

bool DuplicatesFilter::accepts(const FileURL& url) const {
    if (bytes_.empty()) {
        return !isPlain(url.path()) && shownPath(url).contains(wanted_, Qt::CaseInsensitive);
    }
    // No byte of another letter's UTF-8 is ASCII, so that texts need not be made of them all.
    const std::string& path = url.path();
    return std::search(path.begin(), path.end(), bytes_.begin(), bytes_.end(),
                       [](char a, char b) { return lower(a) == b; }) != path.end();
}

}
