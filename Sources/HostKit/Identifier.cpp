#include <HostKit/Identifier.h>

#include <boost/uuid/uuid_io.hpp>

namespace tolvane {

Identifier freshIdentifier() {
    thread_local IdentifierGenerator generator;
    return generator.next();
}

std::string text(const Identifier& identifier) {
    return boost::uuids::to_string(identifier);
}

}
