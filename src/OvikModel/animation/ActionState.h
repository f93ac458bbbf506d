#pragma once
// What actions make of an object at one moment: one place per animated number, colour and
// latest value of the property table, and keyed shifts of font axes, effect parameters and
// generator parameters. The compositor lays it over the object's stored values.
#include <array>
#include <map>
#include <optional>
#include <string>

#include "OvikModel/animation/ActionValue.h"
#include "OvikModel/animation/EffectAddress.h"
#include "OvikModel/animation/RevealShape.h"
#include "OvikModel/scene/PropertyTable.h"
#include "OvikPlatform/geometry/CGPoint.h"

namespace ovik {

struct ActionState {
    /// A generator parameter's move: a value that replaces it and an offset added to it.
    struct ParamMove {
        std::optional<ActionValue> value;
        std::optional<ActionValue> offset;
        bool operator==(const ParamMove&) const = default;
    };

    std::array<double, PropertyTable::numberPlaces> numbers = PropertyTable::restNumbers();
    std::array<std::optional<RGBA>, PropertyTable::colorPlaces> colors;
    std::array<std::optional<ActionValue>, PropertyTable::latestPlaces> latest;
    std::optional<RevealShape> revealShape;
    /// Shifts added to the text's font axes, by four-letter tag.
    std::map<std::string, double> fontAxes;
    std::map<EffectAddress, double> effectShifts;
    std::map<std::string, ParamMove> paramMoves;

    /// Nothing moved; made once and shared.
    static const ActionState& rest();

    /// The number of a key with a number place (the first of a vector's two); 0 for any other key.
    double operator[](PropertyKey key) const;
    /// The number place of `key`, which must have one.
    double& operator[](PropertyKey key);
    std::optional<RGBA> color(PropertyKey key) const;
    std::optional<RGBA>& color(PropertyKey key);
    const std::optional<ActionValue>& latestValue(PropertyKey key) const;
    std::optional<ActionValue>& latestValue(PropertyKey key);
    /// The vector at `position`'s two places.
    CGVector offset() const;
    void setOffset(CGVector offset);

    /// The present values and offsets of `paramMoves`.
    std::map<std::string, ActionValue> paramValues() const;
    std::map<std::string, ActionValue> paramOffsets() const;
    /// Replaces that field on every entry; entries left with neither field go.
    void setParamValues(const std::map<std::string, ActionValue>& values);
    void setParamOffsets(const std::map<std::string, ActionValue>& offsets);

    /// No stretch, skew, rotation, blur or colour.
    bool isPlain() const;
    /// Depth or a turn about either axis of the plane.
    bool isInDepth() const;
    /// Rest, but for the numbers that configure rather than move, and the effect and
    /// generator parameter moves.
    ActionState settings() const;
    /// Whether `settings` differs from rest.
    bool configures() const;
    /// A parent's state `other` merged into this one, for parts and driver poses.
    ActionState combined(const ActionState& other) const;

    /// Two offsets of one kind, number or vector, summed; of other kinds `a` stands.
    static ActionValue addedOffset(const ActionValue& a, const ActionValue& b);
    /// `top` laid over `below` by source-over, alphas limited to 0...1.
    static RGBA over(const RGBA& top, const std::optional<RGBA>& below);

    bool operator==(const ActionState&) const = default;
};

} // namespace ovik
