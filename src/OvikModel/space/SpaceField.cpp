#include "OvikModel/space/SpaceField.h"

namespace ovik {

bool SpaceField::onNode() const {
    return part != Part::renderer && part != Part::environment && part != Part::fog && part != Part::camera;
}

std::string SpaceField::place() const { return section ? *section + "." + key : key; }

} // namespace ovik
