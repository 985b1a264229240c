#include <HostKit/PropertyListBounds.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace tolvane {
namespace {

constexpr std::size_t deepest = 64;
/// Of values, and of bytes that are copied for them, references followed as often as they occur.
constexpr std::uint64_t mostValues = 50'000;
constexpr std::uint64_t mostBytes = 4'194'304;

constexpr std::string_view binaryMagic = "bplist00";

/// Walks a binary property list as the library does, adding up what that will cost it. The format
/// is that of Core Foundation: objects, a table of their places, and a trailer of 32 bytes.
class BinaryWalk {
  public:
    explicit BinaryWalk(std::string_view bytes)
        : bytes_(bytes) {}

    bool isHarmless() { return readTrailer() && visit(topObject_, 0); }

  private:
    static constexpr std::size_t trailerSize = 32;

    enum Kind : std::uint8_t { simple, integer, real, date, data, ascii, utf16, uid = 8 };
    static constexpr std::uint8_t firstContainer = 0xA;
    static constexpr std::uint8_t dictionary = 0xD;

    bool readTrailer() {
        if (bytes_.size() < binaryMagic.size() + trailerSize) {
            return false;
        }
        const std::size_t trailer = bytes_.size() - trailerSize;
        offsetSize_ = number(trailer + 6, 1).value_or(0);
        referenceSize_ = number(trailer + 7, 1).value_or(0);
        objectCount_ = number(trailer + 8, 8).value_or(0);
        topObject_ = number(trailer + 16, 8).value_or(0);
        table_ = number(trailer + 24, 8).value_or(0);
        return table_ <= trailer && offsetSize_ > 0 && offsetSize_ <= 8 && referenceSize_ > 0 &&
               referenceSize_ <= 8 && objectCount_ <= (trailer - table_) / offsetSize_;
    }

    /// A big-endian number of at most 8 bytes; absent when it does not lie in the file.
    std::optional<std::uint64_t> number(std::uint64_t position, std::uint64_t size) const {
        if (size > bytes_.size() || position > bytes_.size() - size) {
            return std::nullopt;
        }
        std::uint64_t value = 0;
        for (const char byte : bytes_.substr(position, size)) {
            value = value << 8 | static_cast<unsigned char>(byte);
        }
        return value;
    }

    /// How many elements the object has; `position` moves behind that.
    std::optional<std::uint64_t> elementCount(std::uint8_t marker, std::uint64_t& position) const {
        constexpr std::uint8_t follows = 0xF;
        if ((marker & follows) != follows) {
            return marker & follows;
        }
        const std::optional<std::uint64_t> sizeMarker = number(position, 1);
        if (!sizeMarker || *sizeMarker >> 4 != integer || (*sizeMarker & 0xF) > 3) {
            return std::nullopt;
        }
        const std::uint64_t size = std::uint64_t(1) << (*sizeMarker & 0xF);
        const std::optional<std::uint64_t> count = number(position + 1, size);
        position += 1 + size;
        return count;
    }

    bool visit(std::uint64_t object, std::size_t depth) {
        if (object >= objectCount_ || depth > deepest || ++values_ > mostValues) {
            return false;
        }
        std::uint64_t position = number(table_ + object * offsetSize_, offsetSize_).value_or(0);
        const std::optional<std::uint64_t> marker = number(position, 1);
        if (!marker || position >= table_) {
            return false;
        }
        ++position;
        const auto kind = static_cast<std::uint8_t>(*marker >> 4);
        if (kind <= date || kind == uid) {
            return true;
        }
        const std::optional<std::uint64_t> count =
            elementCount(static_cast<std::uint8_t>(*marker), position);
        if (!count || *count > bytes_.size()) {
            return false;
        }
        if (kind < firstContainer) {
            // One UTF-16 unit takes at most three bytes.
            copied_ += kind == utf16 ? *count * 3 : *count;
            return copied_ <= mostBytes && (kind == data || isText(position, *count, kind));
        }
        return visitAll(position, kind == dictionary ? *count * 2 : *count, depth);
    }

    /// Whether the string has no NUL, which ends the program when a key has one.
    bool isText(std::uint64_t position, std::uint64_t count, std::uint8_t kind) const {
        const std::uint64_t unitSize = kind == utf16 ? 2 : 1;
        for (std::uint64_t i = 0; i < count; ++i) {
            if (number(position + i * unitSize, unitSize).value_or(0) == 0) {
                return false;
            }
        }
        return true;
    }

    bool visitAll(std::uint64_t position, std::uint64_t count, std::size_t depth) {
        for (std::uint64_t i = 0; i < count; ++i, position += referenceSize_) {
            const std::optional<std::uint64_t> object = number(position, referenceSize_);
            if (!object || !visit(*object, depth + 1)) {
                return false;
            }
        }
        return true;
    }

    std::string_view bytes_;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t referenceSize_ = 0;
    std::uint64_t objectCount_ = 0;
    std::uint64_t topObject_ = 0;
    std::uint64_t table_ = 0;
    std::uint64_t values_ = 0;
    std::uint64_t copied_ = 0;
};

/// Follows the tags of an XML property list as far as it takes to know how deep they nest. What
/// could mean one thing here and another to the library is refused: entities of the file's own,
/// quotes that a tag does not close.
class TagWalk {
  public:
    explicit TagWalk(std::string_view text)
        : text_(text) {}

    bool isHarmless() {
        if (text_.find('\0') != std::string_view::npos) {
            return false;
        }
        for (std::size_t start = text_.find('<'); start != std::string_view::npos;
             start = text_.find('<', position_)) {
            if (!pass(text_.substr(start), start)) {
                return false;
            }
        }
        return true;
    }

  private:
    /// Passes the tag or whatever else `rest` begins with.
    bool pass(std::string_view rest, std::size_t start) {
        struct Passage {
            std::string_view start;
            std::string_view end;
        };
        constexpr Passage passages[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
        for (const Passage& passage : passages) {
            if (rest.starts_with(passage.start)) {
                const std::size_t end = rest.find(passage.end, passage.start.size());
                position_ = start + end + passage.end.size();
                return end != std::string_view::npos;
            }
        }
        const std::size_t end = rest.find('>');
        position_ = start + end + 1;
        return end != std::string_view::npos && enter(rest.substr(0, end));
    }

    /// `tag` is without its ">".
    bool enter(std::string_view tag) {
        const bool isDeclaration = tag.starts_with("<!DOCTYPE");
        const bool mayQuote = isDeclaration || tag.starts_with("<plist");
        const auto quotes = std::count(tag.begin(), tag.end(), '"');
        const bool isOdd = tag.find_first_of("['") != std::string_view::npos ||
                           tag.find('<', 1) != std::string_view::npos;
        if (isOdd || quotes % 2 != 0 || (quotes > 0 && !mayQuote)) {
            return false;
        }
        if (isDeclaration || tag.ends_with('/')) {
            return true;
        }
        if (tag.starts_with("</")) {
            return depth_-- > 0;
        }
        return !tag.starts_with("<!") && ++depth_ <= deepest;
    }

    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t depth_ = 0;
};

}

bool PropertyListBounds::holdFor(std::string_view bytes) {
    return bytes.starts_with(binaryMagic) ? BinaryWalk(bytes).isHarmless()
                                          : TagWalk(bytes).isHarmless();
}

}
