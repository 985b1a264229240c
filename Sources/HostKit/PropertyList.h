#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tolvane {

/// A value of a property list, and what it holds.
class PropertyList {
  public:
    using List = std::vector<PropertyList>;
    struct Entry;

    /// Longer texts are refused: those of honest programs take a few kibibytes.
    static constexpr std::size_t largestSize = 256 * 1024;

    /// The value that the bytes are, in XML or in the binary form. Absent when they are neither,
    /// and when they nest or repeat so much that reading them would take long or much memory.
    /// Entities of a file's own are never read.
    static std::optional<PropertyList> parse(std::string_view bytes);

    /// Any bytes but NUL; null when this is no string.
    const std::string* string() const { return std::get_if<std::string>(&value_); }
    std::optional<bool> boolean() const { return scalar<bool>(); }
    std::optional<std::int64_t> integer() const { return scalar<std::int64_t>(); }
    std::optional<double> real() const { return scalar<double>(); }
    /// Null when this is no list.
    const List* list() const { return std::get_if<List>(&value_); }
    /// What a dictionary holds under the key; null when there is no such thing.
    const PropertyList* at(std::string_view key) const;
    /// In the file's order; null when this is no dictionary.
    const std::vector<Entry>* dictionary() const;

  private:
    /// Dates, data and references stand as `monostate`: nothing here asks for them.
    using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string, List,
                               std::vector<Entry>>;
    struct Reader;

    explicit PropertyList(Value value);

    template <class Scalar>
    std::optional<Scalar> scalar() const {
        const Scalar* const found = std::get_if<Scalar>(&value_);
        return found != nullptr ? std::optional(*found) : std::nullopt;
    }

    Value value_;
};

struct PropertyList::Entry {
    std::string key;
    PropertyList value;
};

inline const std::vector<PropertyList::Entry>* PropertyList::dictionary() const {
    return std::get_if<std::vector<Entry>>(&value_);
}

}
