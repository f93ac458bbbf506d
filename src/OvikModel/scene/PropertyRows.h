#pragma once
// The rows of the property table, by group, in table order. Only the table reads these.
#include <vector>

#include "OvikModel/scene/PropertySpec.h"

namespace ovik {

std::vector<PropertySpec> objectPropertyRows();
std::vector<PropertySpec> sectionPropertyRows();
std::vector<PropertySpec> spacePropertyRows();
std::vector<PropertySpec> derivedPropertyRows();

} // namespace ovik
