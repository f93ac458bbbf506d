#pragma once
// Laying the parts of an object out along a shape.
#include <optional>

#include "OvikModel/objects/BezierPath.h"

namespace ovik {

struct ArrangeShape : Enumeration<ArrangeShape> {
    struct line {
        static constexpr std::string_view name = "line";
        bool operator==(const line&) const = default;
    };
    struct circle {
        static constexpr std::string_view name = "circle";
        bool operator==(const circle&) const = default;
    };
    struct arc {
        static constexpr std::string_view name = "arc";
        bool operator==(const arc&) const = default;
    };
    struct cylinder {
        static constexpr std::string_view name = "cylinder";
        bool operator==(const cylinder&) const = default;
    };
    struct path {
        static constexpr std::string_view name = "path";
        BezierPath value;
        bool operator==(const path&) const = default;
    };
    std::variant<line, circle, arc, cylinder, path> cases;

    bool operator==(const ArrangeShape&) const = default;
};

struct Arrange {
    using Shape = ArrangeShape;

    Shape shape;
    std::optional<double> radius;
    std::optional<double> spacing;
    std::optional<double> interval;
    double angle = 0;

    bool operator==(const Arrange&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("shape", &Arrange::shape), optional("radius", &Arrange::radius),
                          optional("spacing", &Arrange::spacing), optional("interval", &Arrange::interval),
                          defaulted("angle", &Arrange::angle)};
    }
};

} // namespace ovik
