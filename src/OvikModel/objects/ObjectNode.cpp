#include "OvikModel/objects/ObjectNode.h"

namespace ovik {

bool ObjectContent::group::operator==(const group& other) const { return value == other.value; }

ObjectContent ObjectContent::makeAnnotation(Annotation value) {
    return ObjectContent{{}, annotation{std::move(value)}};
}

ObjectContent ObjectContent::makeGroup(std::vector<ObjectNode> children) {
    return ObjectContent{{}, group{std::move(children)}};
}

const std::vector<ObjectNode>* ObjectContent::children() const {
    const auto* g = std::get_if<group>(&cases);
    return g ? &g->value : nullptr;
}

std::vector<ObjectNode>* ObjectContent::children() {
    auto* g = std::get_if<group>(&cases);
    return g ? &g->value : nullptr;
}

} // namespace ovik
