#pragma once
// Failures of reading JSON into a record. The error carries its data (kind, coding path, the
// decoder's own description); the layers above word it for a person through the text table.
#include <string>
#include <vector>

#include "OvikPlatform/Error.h"
#include "OvikPlatform/json/CodingPath.h"

namespace ovik {

class DecodingError : public Error {
public:
    enum class Kind { keyNotFound, valueNotFound, typeMismatch, dataCorrupted };
    /// What damage a `dataCorrupted` error found, where a person is told it in words of their
    /// own rather than by the description: text that isn't JSON at all (the parser's reason
    /// means nothing to them), or a number too large for its field.
    enum class Damage { described, notJSON, numberOutOfRange };

    DecodingError(Kind kind, std::vector<CodingKey> codingPath, std::string debugDescription);

    static DecodingError keyNotFound(const CodingPath& path, std::string_view key);
    static DecodingError valueNotFound(const CodingPath& path, std::string_view type);
    static DecodingError typeMismatch(const CodingPath& path, std::string_view type, std::string_view found);
    static DecodingError dataCorrupted(const CodingPath& path, std::string description);
    static DecodingError notJSON(std::string description);
    static DecodingError numberOutOfRange(const CodingPath& path, std::string description);

    Kind kind() const { return kind_; }
    const std::vector<CodingKey>& codingPath() const { return codingPath_; }
    const std::string& debugDescription() const { return debugDescription_; }
    Damage damage() const { return damage_; }

private:
    Kind kind_;
    Damage damage_ = Damage::described;
    std::vector<CodingKey> codingPath_;
    std::string debugDescription_;
};

/// A value that JSON can't hold (a non-finite number): encoding fails and nothing is written.
class EncodingError : public Error {
public:
    EncodingError(std::vector<CodingKey> codingPath, std::string debugDescription);
    const std::vector<CodingKey>& codingPath() const { return codingPath_; }
    const std::string& debugDescription() const { return debugDescription_; }

private:
    std::vector<CodingKey> codingPath_;
    std::string debugDescription_;
};

} // namespace ovik
