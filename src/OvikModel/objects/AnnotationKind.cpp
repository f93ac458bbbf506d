#include "OvikModel/objects/AnnotationKind.h"

#include "OvikL10n/L10n.h"

namespace ovik {
namespace {

// Indexed by the kind.
constexpr std::string_view displayNameKeys[] = {
    "model.object.rectangle",   "model.object.ellipse",    "model.object.arrow",   "model.shape.line",
    "model.object.brush",       "model.valueKind.text",    "model.object.counter", "model.object.redact",
    "model.object.spotlight",   "model.object.magnifier",  "model.object.sticker", "model.valueKind.path",
    "model.object.followPoint", "model.feature.particles", "model.object.solid",   "model.object.generator",
};
static_assert(std::size(displayNameKeys) == 16);

} // namespace

std::string displayName(AnnotationKind kind) { return L10n::text(displayNameKeys[std::size_t(kind)]); }

std::string groupDisplayName() { return L10n::text("model.object.group"); }

} // namespace ovik
