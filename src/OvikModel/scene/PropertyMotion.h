#pragma once
// How actions compose on a property: the rule of composition, the kind and rest value, the
// domain it belongs to, its clamp, and where its value is kept in an action state.
#include <optional>

#include "OvikModel/animation/ActionValue.h"

namespace ovik {

enum class PropertyComposition { additive, multiplicative, blended, latest };
enum class PropertyClamp { none, nonNegative, unit };
enum class PropertyDomain { motion, arrange, back, become, lens, font, material, effect, gradient, generator };

/// A place in an action state: an index into its numbers (two for a vector), colours or
/// latest values, or one of the keyed stores.
struct PropertyStore {
    enum class Kind { number, color, latest, none, fontAxis, effect, param };
    Kind kind = Kind::none;
    int index = 0;
    bool operator==(const PropertyStore&) const = default;
};

struct PropertyMotion {
    PropertyComposition composition = PropertyComposition::additive;
    ActionValue::Kind valueKind = ActionValue::Kind::number;
    /// The value that has no effect; none where there is no such value (a colour, a text).
    std::optional<ActionValue> rest;
    PropertyDomain domain = PropertyDomain::motion;
    PropertyClamp clamp = PropertyClamp::none;
    /// Given when the table is built.
    PropertyStore store;

    /// An additive number that rests at 0.
    static PropertyMotion add(PropertyDomain domain = PropertyDomain::motion) {
        return {PropertyComposition::additive, ActionValue::Kind::number, ActionValue::makeNumber(0), domain,
                PropertyClamp::none, {}};
    }
    /// A factor that rests at 1.
    static PropertyMotion times(PropertyDomain domain = PropertyDomain::motion, PropertyClamp clamp = PropertyClamp::none) {
        return {PropertyComposition::multiplicative, ActionValue::Kind::number, ActionValue::makeNumber(1), domain, clamp,
                {}};
    }
    /// The last value written stands.
    static PropertyMotion latest(ActionValue::Kind kind, PropertyDomain domain = PropertyDomain::motion) {
        return {PropertyComposition::latest, kind, std::nullopt, domain, PropertyClamp::none, {}};
    }
};

/// What evaluation needs of one property, in one flat list indexed by key.
struct PropertySlot {
    PropertyComposition composition = PropertyComposition::latest;
    ActionValue::Kind valueKind = ActionValue::Kind::text;
    PropertyClamp clamp = PropertyClamp::none;
    PropertyStore store;
    PropertyDomain domain = PropertyDomain::motion;
    bool isAnimatable = false;
    /// Position among the animatable properties; -1 for the others.
    int rank = -1;
};

} // namespace ovik
