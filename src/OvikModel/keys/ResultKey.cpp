#include "OvikModel/keys/ResultKey.h"

#include "OvikPlatform/crypto/SHA256.h"

namespace ovik {

ResultKey::ResultKey(std::map<std::string, std::string> components) : components(std::move(components)) {
    SHA256 hasher;
    for (const auto& [key, value] : this->components) {
        hasher.update(key);
        hasher.update("=");
        hasher.update(value);
        hasher.update("\n");
    }
    digest = hexString(hasher.finalize());
}

} // namespace ovik
