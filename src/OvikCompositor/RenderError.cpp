#include "OvikCompositor/RenderError.h"

#include "OvikL10n/L10n.h"

namespace ovik {
namespace {

// Sizes as a person reads them: whole megabytes.
std::string megabytes(std::int64_t bytes) { return std::to_string((bytes + 999'999) / 1'000'000) + " MB"; }

struct Describe {
    std::string operator()(const RenderError::unsupported& c) const {
        const char* kind = c.kind == DraftKind::recording ? "compositor.error.kind.recording" : "compositor.error.kind.screenshot";
        return L10n::format("compositor.error.unsupported", {L10n::text(kind), c.format.rawValue});
    }
    std::string operator()(const RenderError::diskSpaceLow& c) const {
        return L10n::format("compositor.error.diskSpaceLow", {megabytes(c.neededBytes), megabytes(c.availableBytes)});
    }
    std::string operator()(const RenderError::sourceUnreadable& c) const {
        return L10n::format("compositor.error.sourceUnreadable", {c.value});
    }
    std::string operator()(const RenderError::failed& c) const { return L10n::format("compositor.error.failed", {c.value}); }
    std::string operator()(const RenderError::cancelled&) const { return L10n::text("compositor.error.cancelled"); }
};

} // namespace

std::string RenderError::localizedDescription() const { return visit(Describe{}); }

RenderFailure::RenderFailure(RenderError error) : Error(error.localizedDescription()), error_(std::move(error)) {}

} // namespace ovik
