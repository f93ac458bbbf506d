#include "OvikModel/scene/PropertyRow.h"

namespace ovik {

PropertyRow::PropertyRow(PropertyGroup group, std::string_view prefix, std::string_view sdk) {
    spec_.group = group;
    spec_.sdk = std::string(sdk);
    named(std::string(prefix) + std::string(sdk));
}

PropertyRow& PropertyRow::named(std::string_view name) {
    spec_.name = std::string(name);
    spec_.titleKey = "model.property." + spec_.name + ".title";
    spec_.helpKey = "model.property." + spec_.name + ".help";
    return *this;
}

PropertyRow& PropertyRow::typed(PropertyValueType type, std::optional<PropertyForm> form) {
    spec_.type = type;
    spec_.form = form;
    return *this;
}

PropertyRow& PropertyRow::moving(PropertyMotion motion) {
    spec_.motion = motion;
    spec_.drivable = true;
    return *this;
}

PropertyRow& PropertyRow::on(std::initializer_list<PropertyTargetKind> targets) {
    spec_.targets = targets;
    return *this;
}

PropertyRow& PropertyRow::ranged(double lo, double hi) {
    spec_.range = std::pair{lo, hi};
    return *this;
}

PropertyRow& PropertyRow::unit(std::string_view unit) {
    spec_.unit = std::string(unit);
    return *this;
}

PropertyRow& PropertyRow::option(std::string_view option) {
    spec_.option = std::string(option);
    return *this;
}

PropertyRow& PropertyRow::choices(std::vector<std::string> words) {
    spec_.type = PropertyValueType::choice;
    spec_.form = PropertyForm::choice;
    spec_.words = std::move(words);
    return *this;
}

PropertyRow& PropertyRow::derived() {
    spec_.derived = true;
    return *this;
}

PropertyRow& PropertyRow::access(std::shared_ptr<const ObjectAccess> access) {
    spec_.objectAccess = std::move(access);
    return *this;
}

PropertyRow& PropertyRow::access(std::shared_ptr<const SectionAccess> access) {
    spec_.sectionAccess = std::move(access);
    return *this;
}

PropertyRow& PropertyRow::access(std::shared_ptr<const MediaAccess> access) {
    spec_.mediaAccess = std::move(access);
    return *this;
}

PropertyRow& PropertyRow::space(SpaceField field) {
    if (field.choices) choices(*field.choices);
    spec_.space = std::move(field);
    return *this;
}

} // namespace ovik
