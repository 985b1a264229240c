#pragma once

#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid.hpp>
#include <boost/uuid/uuid_hash.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace tolvane {

/// A random UUID (version 4), 16 bytes.
using Identifier = boost::uuids::uuid;

/// Makes identifiers without a system call each: seeded once from the system's randomness. Not to
/// be shared between threads.
class IdentifierGenerator {
  public:
    Identifier next() { return generator_(); }

  private:
    boost::uuids::random_generator_mt19937 generator_;
};

/// A fresh identifier from this thread's own generator, for records made one at a time.
Identifier freshIdentifier();

/// The usual text form: 36 characters, lower case.
std::string text(const Identifier& identifier);
/// The identifier that this text form stands for; absent for any other text.
std::optional<Identifier> identifier(std::string_view text);

}
