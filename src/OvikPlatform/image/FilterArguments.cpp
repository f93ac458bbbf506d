#include "OvikPlatform/image/FilterArguments.h"

namespace ovik {

double FilterArguments::number(const std::string& name, double minimum) const {
    const double value = number(name);
    if (value < minimum) throw invalid("“" + name + "” must be " + std::to_string(minimum) + " or more");
    return value;
}

} // namespace ovik
