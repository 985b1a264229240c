#include <HostKit/Collation.h>

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

namespace tolvane {
namespace {

std::string_view userLocale() {
    for (const char* name : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here ever changes the environment.
        if (const char* value = std::getenv(name); value != nullptr && *value != '\0') {
            return value;
        }
    }
    return "C";
}

/// The locale that Unicode's tables know by this name. Their own entry for "C" would put all
/// capital letters before all small ones.
icu::Locale knownLocale(std::string_view name) {
    const std::string language(name.substr(0, name.find_first_of(".@")));
    if (language.empty() || language == "C" || language == "POSIX") {
        return icu::Locale::getRoot();
    }
    return icu::Locale::createCanonical(std::string(name).c_str());
}

std::unique_ptr<icu::Collator> collator(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(locale, status));
    if (made) {
        made->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
        made->setStrength(icu::Collator::SECONDARY);
    }
    return U_FAILURE(status) ? nullptr : std::move(made);
}

icu::StringPiece piece(std::string_view bytes) {
    return {bytes.data(), static_cast<std::int32_t>(bytes.size())};
}

}

struct Collation::Order {
    /// Null where Unicode's tables are missing: then the bytes decide.
    std::unique_ptr<icu::Collator> collator;
};

Collation::Collation()
    : Collation(userLocale()) {}

Collation::Collation(std::string_view locale)
    : order_(std::make_unique<Order>(Order{collator(knownLocale(locale))})) {}

Collation::~Collation() = default;
Collation::Collation(Collation&&) noexcept = default;
Collation& Collation::operator=(Collation&&) noexcept = default;

int Collation::compare(std::string_view a, std::string_view b) const {
    if (!order_->collator) {
        return a.compare(b);
    }
    UErrorCode status = U_ZERO_ERROR;
    return order_->collator->compareUTF8(piece(a), piece(b), status);
}

std::string Collation::sortKey(std::string_view name) const {
    if (!order_->collator) {
        return std::string(name);
    }
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(piece(name));
    std::array<std::uint8_t, 256> usual{};
    std::int32_t size =
        order_->collator->getSortKey(text, usual.data(), static_cast<std::int32_t>(usual.size()));
    if (size <= static_cast<std::int32_t>(usual.size())) {
        return {usual.begin(), usual.begin() + size};
    }
    std::vector<std::uint8_t> key(static_cast<std::size_t>(size));
    size = order_->collator->getSortKey(text, key.data(), size);
    return {key.begin(), key.begin() + size};
}

}
