#pragma once
// SHA-256 over libcrypto's EVP interface, kept behind an opaque context so that no OpenSSL
// header reaches the includers. Used for render keys, result keys and content digests.
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

struct evp_md_ctx_st;

namespace ovik {

class SHA256 {
public:
    using Digest = std::array<std::uint8_t, 32>;

    SHA256();
    SHA256(SHA256&&) noexcept;
    SHA256& operator=(SHA256&&) noexcept;
    ~SHA256();

    void update(std::span<const std::uint8_t> bytes);
    void update(std::string_view bytes);
    /// The digest of everything given so far; the hasher then starts again from nothing.
    Digest finalize();

    static Digest hash(std::string_view bytes);
    static Digest hash(std::span<const std::uint8_t> bytes);

private:
    struct FreeContext {
        void operator()(evp_md_ctx_st* context) const noexcept;
    };
    std::unique_ptr<evp_md_ctx_st, FreeContext> context_;
};

/// Lower-case hexadecimal, two digits a byte.
std::string hexString(std::span<const std::uint8_t> bytes);

} // namespace ovik
