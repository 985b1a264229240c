#include <HostKit/Digest.h>

#include <openssl/evp.h>

#include <cstdio>
#include <cstdlib>

namespace tolvane {
namespace {

/// Only a lack of memory or a broken installation of the library fails here; a digest that was not
/// computed must never be compared.
void require(bool succeeded) {
    if (!succeeded) {
        std::fputs("tolvane: SHA-256 is not available; stopping\n", stderr);
        std::abort();
    }
}

/// Looked up once: a look-up costs more than hashing a small file.
const EVP_MD* sha256() {
    static const EVP_MD* const algorithm = EVP_MD_fetch(nullptr, "SHA256", nullptr);
    require(algorithm != nullptr);
    return algorithm;
}

}

struct Digest::Context {
    EVP_MD_CTX* state = EVP_MD_CTX_new();

    Context() { start(); }
    ~Context() { EVP_MD_CTX_free(state); }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    void start() const {
        require(state != nullptr && EVP_DigestInit_ex2(state, sha256(), nullptr) == 1);
    }
};

Digest::Digest()
    : context_(std::make_unique<Context>()) {}

Digest::~Digest() = default;

void Digest::update(std::span<const std::byte> bytes) {
    require(EVP_DigestUpdate(context_->state, bytes.data(), bytes.size()) == 1);
}

Digest::Value Digest::finish() {
    Value value{};
    require(EVP_DigestFinal_ex(context_->state, value.data(), nullptr) == 1);
    context_->start();
    return value;
}

std::string hexadecimal(const Digest::Value& value) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(2 * value.size());
    for (const std::uint8_t byte : value) {
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

}
