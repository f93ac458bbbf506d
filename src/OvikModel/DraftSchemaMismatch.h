#pragma once
// The one error that carries a draft's schema number out of its decoder: a draft of another
// schema is refused by number, never converted.
#include <cstdint>

#include "OvikPlatform/Error.h"

namespace ovik {

class DraftSchemaMismatch : public Error {
public:
    explicit DraftSchemaMismatch(std::int64_t schema);

    std::int64_t schema() const { return schema_; }
    /// Made by a later program than this one.
    bool isNewer() const;

private:
    std::int64_t schema_;
};

} // namespace ovik
