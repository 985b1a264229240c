#pragma once

#include <cstdint>

namespace tolvane {

/// A size or a count of bytes. Signed, so that differences need no second type.
using Bytes = std::int64_t;

/// Ends the program with a message that names the operation: a size that wrapped would be believed.
[[noreturn]] void failOnOverflow(const char* operation);

/// `a + b`; overflow ends the program.
inline std::int64_t sum(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(a, b, &result)) {
        failOnOverflow("addition");
    }
    return result;
}

/// `a - b`; overflow ends the program.
inline std::int64_t difference(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_sub_overflow(a, b, &result)) {
        failOnOverflow("subtraction");
    }
    return result;
}

/// `a * b`; overflow ends the program.
inline std::int64_t product(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_mul_overflow(a, b, &result)) {
        failOnOverflow("multiplication");
    }
    return result;
}

/// `total += value`; overflow ends the program.
inline void add(std::int64_t& total, std::int64_t value) {
    total = sum(total, value);
}

}
