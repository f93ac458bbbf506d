#pragma once
// A value that an action moves a property to or by. JSON: tagged, {"number": 0.5},
// {"vector": {"dx": 1, "dy": 2}}, {"color": …}, {"text": "…"}, {"path": …}.
#include <string>

#include "OvikModel/objects/BezierPath.h"
#include "OvikModel/values/RGBA.h"
#include "OvikPlatform/Enumeration.h"

namespace ovik {

struct ActionValue : Enumeration<ActionValue> {
    /// The kinds, in the order that sorting and kind checks count them.
    enum class Kind { number, vector, color, text, path };

    struct number {
        static constexpr std::string_view name = "number";
        // No initializer: the first case of a variant declared in the same type must be
        // default-constructible before that type is complete. The variant zeroes it.
        double value;
        bool operator==(const number&) const = default;
    };
    struct vector {
        static constexpr std::string_view name = "vector";
        double dx = 0;
        double dy = 0;
        bool operator==(const vector&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("dx", &vector::dx), required("dy", &vector::dy)}; }
    };
    struct color {
        static constexpr std::string_view name = "color";
        RGBA value;
        bool operator==(const color&) const = default;
    };
    struct text {
        static constexpr std::string_view name = "text";
        std::string value;
        bool operator==(const text&) const = default;
    };
    struct path {
        static constexpr std::string_view name = "path";
        BezierPath value;
        bool operator==(const path&) const = default;
    };
    std::variant<number, vector, color, text, path> cases;

    static ActionValue makeNumber(double value) { return ActionValue{{}, number{value}}; }
    static ActionValue makeVector(double dx, double dy) { return ActionValue{{}, vector{dx, dy}}; }
    static ActionValue makeColor(RGBA value) { return ActionValue{{}, color{value}}; }
    static ActionValue makeText(std::string value) { return ActionValue{{}, text{std::move(value)}}; }
    static ActionValue makePath(BezierPath value) { return ActionValue{{}, path{std::move(value)}}; }

    Kind kind() const { return Kind(cases.index()); }
    /// Every real in it is finite.
    bool isFinite() const;
    /// Every point and handle of the path is finite.
    static bool isFinite(const BezierPath& path);

    bool operator==(const ActionValue&) const = default;
};

constexpr auto enumCases(ActionValue::Kind*) {
    using enum ActionValue::Kind;
    return EnumCases<ActionValue::Kind, 5>{
        "Kind", {{number, "number"}, {vector, "vector"}, {color, "color"}, {text, "text"}, {path, "path"}}};
}

} // namespace ovik
