#pragma once
// The plain record that the painter reads for one object at one moment: what its actions
// made of it, each field at its neutral value when nothing moved.
#include <map>
#include <optional>
#include <string>

#include "OvikModel/animation/ActionState.h"
#include "OvikModel/values/HeldIfSet.h"

namespace ovik {

struct ObjectAppearance {
    double opacity = 1;
    double scale = 1;
    CGVector offset;
    /// How much of the outline is drawn.
    double drawn = 1;
    double stretchX = 1;
    double stretchY = 1;
    double skew = 0;
    double rotation = 0;
    double blur = 0;
    std::optional<RGBA> color;
    double depth = 0;
    double rotationX = 0;
    double rotationY = 0;
    double reveal = 1;
    std::optional<RevealShape> revealShape;
    std::optional<std::string> text;
    std::optional<double> number;
    double strokeStart = 0;
    double strokeOffset = 0;
    std::optional<BezierPath> path;
    /// The numbers that configure rather than move, and the effect and parameter moves
    /// (`ActionState.settings`); none when all are at rest, as in most appearances, which then
    /// carry no state of their own.
    HeldIfSet<ActionState> settings;
    /// Seconds since the object appeared, for objects that animate by themselves.
    std::optional<double> age;
    double become = 0;
    std::map<std::string, double> fontAxes;

    ObjectAppearance() = default;
    /// Read off `state`; an outline that cannot draw keeps drawn 1, start 0 and offset 0.
    ObjectAppearance(const ActionState& state, bool drawsOutline);

    /// Nothing moved; made once and shared.
    static const ObjectAppearance& full();

    bool isFull() const { return *this == full(); }
    /// The settings, rest when none are held.
    const ActionState& settingsState() const { return settings ? *settings : ActionState::rest(); }
    /// No stretch, skew, rotation, blur or colour.
    bool isPlain() const;

    bool operator==(const ObjectAppearance&) const = default;

private:
    /// The moving numbers read from a state's places.
    template <class Places>
    ObjectAppearance(const ActionState& state, const Places& places);
};

} // namespace ovik
