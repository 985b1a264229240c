#include <HostKit/PropertyList.h>
#include <HostKit/PropertyListBounds.h>

#include <plist/plist.h>

#include <cstdlib>
#include <memory>
#include <utility>

namespace tolvane {
namespace {

using Node = std::unique_ptr<void, decltype(&plist_free)>;
using Memory = std::unique_ptr<void, decltype(&std::free)>;

std::string stringOf(plist_t node) {
    std::uint64_t length = 0;
    const char* const text = plist_get_string_ptr(node, &length);
    return text == nullptr ? std::string() : std::string(text, static_cast<std::size_t>(length));
}

}

/// Takes over what the library has read.
struct PropertyList::Reader {
    static PropertyList value(plist_t node) { return PropertyList(valueOf(node)); }

    static Value valueOf(plist_t node) {
        switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN: {
            std::uint8_t boolean = 0;
            plist_get_bool_val(node, &boolean);
            return boolean != 0;
        }
        case PLIST_UINT: {
            // Negative numbers come as their bits.
            std::uint64_t number = 0;
            plist_get_uint_val(node, &number);
            return static_cast<std::int64_t>(number);
        }
        case PLIST_REAL: {
            double number = 0;
            plist_get_real_val(node, &number);
            return number;
        }
        case PLIST_STRING:
            return stringOf(node);
        case PLIST_ARRAY:
            return list(node);
        case PLIST_DICT:
            return dictionary(node);
        default:
            return std::monostate();
        }
    }

    static List list(plist_t node) {
        plist_array_iter iterator = nullptr;
        plist_array_new_iter(node, &iterator);
        const Memory owner(iterator, &std::free);
        List values;
        plist_t item = nullptr;
        for (plist_array_next_item(node, iterator, &item); item != nullptr;
             plist_array_next_item(node, iterator, &item)) {
            values.push_back(value(item));
        }
        return values;
    }

    static std::vector<Entry> dictionary(plist_t node) {
        plist_dict_iter iterator = nullptr;
        plist_dict_new_iter(node, &iterator);
        const Memory owner(iterator, &std::free);
        std::vector<Entry> entries;
        for (;;) {
            char* key = nullptr;
            plist_t item = nullptr;
            plist_dict_next_item(node, iterator, &key, &item);
            const Memory keyOwner(key, &std::free);
            if (item == nullptr) {
                return entries;
            }
            entries.push_back({key == nullptr ? std::string() : std::string(key), value(item)});
        }
    }
};

PropertyList::PropertyList(Value value)
    : value_(std::move(value)) {}

std::optional<PropertyList> PropertyList::parse(std::string_view bytes) {
    if (bytes.size() > largestSize || !PropertyListBounds::holdFor(bytes)) {
        return std::nullopt;
    }
    const auto size = static_cast<std::uint32_t>(bytes.size());
    plist_t read = nullptr;
    // What tells formats apart by itself takes other arguments, and more formats, from release to
    // release of the library.
    if (plist_is_binary(bytes.data(), size) != 0) {
        plist_from_bin(bytes.data(), size, &read);
    } else {
        plist_from_xml(bytes.data(), size, &read);
    }
    const Node root(read, &plist_free);
    return root ? std::optional(Reader::value(root.get())) : std::nullopt;
}

const PropertyList* PropertyList::at(std::string_view key) const {
    const std::vector<Entry>* const entries = dictionary();
    if (entries == nullptr) {
        return nullptr;
    }
    for (const Entry& entry : *entries) {
        if (entry.key == key) {
            return &entry.value;
        }
    }
    return nullptr;
}

}
