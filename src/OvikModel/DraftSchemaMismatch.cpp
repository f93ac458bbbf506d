#include "OvikModel/DraftSchemaMismatch.h"

#include "OvikL10n/L10n.h"
#include "OvikModel/Draft.h"

namespace ovik {
namespace {

bool newer(std::int64_t schema) { return schema > Draft::currentSchema; }

std::string mismatchMessage(std::int64_t schema) {
    return L10n::format(newer(schema) ? "model.draft.newerSchema" : "model.draft.olderSchema", {schema});
}

} // namespace

DraftSchemaMismatch::DraftSchemaMismatch(std::int64_t schema) : Error(mismatchMessage(schema)), schema_(schema) {}

bool DraftSchemaMismatch::isNewer() const { return newer(schema_); }

} // namespace ovik
