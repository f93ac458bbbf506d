#pragma once
// A row of the property table under construction: names first, then what is known of it.
#include <initializer_list>
#include <string_view>

#include "OvikModel/scene/PropertySpec.h"

namespace ovik {

/// A row under construction: names, then what is known of it.
class PropertyRow {
public:
    /// `sdk` is the script name; the dotted name is `prefix` + `sdk` unless `named` says otherwise.
    PropertyRow(PropertyGroup group, std::string_view prefix, std::string_view sdk);

    PropertyRow& named(std::string_view name);
    PropertyRow& typed(PropertyValueType type, std::optional<PropertyForm> form = std::nullopt);
    PropertyRow& moving(PropertyMotion motion);
    PropertyRow& on(std::initializer_list<PropertyTargetKind> targets);
    PropertyRow& ranged(double lo, double hi);
    PropertyRow& unit(std::string_view unit);
    PropertyRow& option(std::string_view option);
    PropertyRow& choices(std::vector<std::string> words);
    PropertyRow& derived();
    PropertyRow& access(std::shared_ptr<const ObjectAccess> access);
    PropertyRow& access(std::shared_ptr<const SectionAccess> access);
    PropertyRow& access(std::shared_ptr<const MediaAccess> access);
    /// A space row: where it lives, and its choice words when it has some.
    PropertyRow& space(SpaceField field);

    operator PropertySpec() const { return spec_; }

private:
    PropertySpec spec_;
};

} // namespace ovik
