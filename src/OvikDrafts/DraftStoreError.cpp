#include "OvikDrafts/DraftStoreError.h"

#include "OvikDrafts/LocalizedDescription.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/DraftSchemaMismatch.h"

namespace ovik {
namespace {

struct Describe {
    std::string operator()(const DraftStoreError::notFound& c) const {
        return L10n::format("drafts.error.notFound", {c.value.description()});
    }
    std::string operator()(const DraftStoreError::unsupportedSchema& c) const {
        return DraftSchemaMismatch(c.value).what();
    }
    std::string operator()(const DraftStoreError::nameTaken& c) const {
        return L10n::format("drafts.error.nameTaken", {c.value});
    }
    std::string operator()(const DraftStoreError::notAnImage& c) const {
        return L10n::format("drafts.error.notAnImage", {c.value});
    }
    // These cases already carry their finished text.
    std::string operator()(const DraftStoreError::unreadable& c) const { return c.value; }
    std::string operator()(const DraftStoreError::writeFailed& c) const { return c.value; }
    std::string operator()(const DraftStoreError::invalidName& c) const { return c.value; }
};

} // namespace

std::string DraftStoreError::localizedDescription() const { return visit(Describe{}); }

DraftStoreFailure::DraftStoreFailure(DraftStoreError error)
    : Error(error.localizedDescription()), error_(std::move(error)) {}

DraftStoreError storeError(const std::exception& error) {
    if (const auto* failure = dynamic_cast<const DraftStoreFailure*>(&error)) return failure->error();
    return DraftStoreError::make(DraftStoreError::writeFailed{ovik::localizedDescription(error)});
}

} // namespace ovik
