#include "OvikPlatform/json/DecodingError.h"

namespace ovik {
namespace {

std::string composed(const std::vector<CodingKey>& path, const std::string& description) {
    std::string where = codingPathText(path);
    return where.empty() ? description : description + " (" + where + ")";
}

} // namespace

DecodingError::DecodingError(Kind kind, std::vector<CodingKey> codingPath, std::string debugDescription)
    : Error(composed(codingPath, debugDescription)), kind_(kind), codingPath_(std::move(codingPath)),
      debugDescription_(std::move(debugDescription)) {}

DecodingError DecodingError::keyNotFound(const CodingPath& path, std::string_view key) {
    std::vector<CodingKey> keys = path.keys();
    keys.push_back(CodingKey{std::string(key), -1});
    return DecodingError(Kind::keyNotFound, std::move(keys),
                         "No value associated with key \"" + std::string(key) + "\".");
}

DecodingError DecodingError::valueNotFound(const CodingPath& path, std::string_view type) {
    return DecodingError(Kind::valueNotFound, path.keys(),
                         "Expected " + std::string(type) + " value but found null instead.");
}

DecodingError DecodingError::typeMismatch(const CodingPath& path, std::string_view type, std::string_view found) {
    return DecodingError(Kind::typeMismatch, path.keys(),
                         "Expected to decode " + std::string(type) + " but found " + std::string(found) + " instead.");
}

DecodingError DecodingError::dataCorrupted(const CodingPath& path, std::string description) {
    return DecodingError(Kind::dataCorrupted, path.keys(), std::move(description));
}

DecodingError DecodingError::notJSON(std::string description) {
    DecodingError error = dataCorrupted(CodingPath(), std::move(description));
    error.damage_ = Damage::notJSON;
    return error;
}

DecodingError DecodingError::numberOutOfRange(const CodingPath& path, std::string description) {
    DecodingError error = dataCorrupted(path, std::move(description));
    error.damage_ = Damage::numberOutOfRange;
    return error;
}

EncodingError::EncodingError(std::vector<CodingKey> codingPath, std::string debugDescription)
    : Error(composed(codingPath, debugDescription)), codingPath_(std::move(codingPath)),
      debugDescription_(std::move(debugDescription)) {}

} // namespace ovik
