#include <HostKit/Identifier.h>

#include <boost/uuid/string_generator.hpp>
#include <boost/uuid/uuid_io.hpp>

#include <stdexcept>

namespace tolvane {

Identifier freshIdentifier() {
    thread_local IdentifierGenerator generator;
    return generator.next();
}

std::string text(const Identifier& identifier) {
    return boost::uuids::to_string(identifier);
}

std::optional<Identifier> identifier(std::string_view text) {
    try {
        const Identifier read = boost::uuids::string_generator()(text.begin(), text.end());
        return tolvane::text(read) == text ? std::optional(read) : std::nullopt;
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
}

}
