#include "OvikPlatform/crypto/SHA256.h"

#include <openssl/evp.h>

#include <stdexcept>

namespace ovik {
namespace {

// Failures here mean libcrypto itself is broken (out of memory); nothing a caller can mend.
void check(int status, const char* step) {
    if (status != 1) throw std::runtime_error(std::string("SHA-256: ") + step + " failed");
}

void start(EVP_MD_CTX* context) { check(EVP_DigestInit_ex(context, EVP_sha256(), nullptr), "init"); }

} // namespace

void SHA256::FreeContext::operator()(evp_md_ctx_st* context) const noexcept { EVP_MD_CTX_free(context); }

SHA256::SHA256() : context_(EVP_MD_CTX_new()) {
    if (!context_) throw std::bad_alloc();
    start(context_.get());
}

SHA256::SHA256(SHA256&&) noexcept = default;
SHA256& SHA256::operator=(SHA256&&) noexcept = default;
SHA256::~SHA256() = default;

void SHA256::update(std::span<const std::uint8_t> bytes) {
    check(EVP_DigestUpdate(context_.get(), bytes.data(), bytes.size()), "update");
}

void SHA256::update(std::string_view bytes) {
    update(std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
}

SHA256::Digest SHA256::finalize() {
    Digest digest{};
    unsigned int length = 0;
    check(EVP_DigestFinal_ex(context_.get(), digest.data(), &length), "final");
    start(context_.get());
    return digest;
}

SHA256::Digest SHA256::hash(std::string_view bytes) {
    SHA256 hasher;
    hasher.update(bytes);
    return hasher.finalize();
}

SHA256::Digest SHA256::hash(std::span<const std::uint8_t> bytes) {
    SHA256 hasher;
    hasher.update(bytes);
    return hasher.finalize();
}

std::string hexString(std::span<const std::uint8_t> bytes) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        text.push_back(digits[byte >> 4]);
        text.push_back(digits[byte & 0xF]);
    }
    return text;
}

} // namespace ovik
