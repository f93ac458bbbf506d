#pragma once
// When an action runs: counted from the object's appearing (`opening`), back from its end
// (`closing`), between two source moments, or over the object's whole life. JSON: a one-key
// object for the first three ({"opening":{"delay":…,"length":…}}, both left out at 0), the
// string "whole" for the last.
#include <string>

#include "OvikModel/values/Times.h"
#include "OvikPlatform/Enumeration.h"

namespace ovik {

struct ActionRange : Enumeration<ActionRange> {
    struct opening {
        static constexpr std::string_view name = "opening";
        MediaDuration delay;
        MediaDuration length;
        bool operator==(const opening&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{defaulted("delay", &opening::delay), defaulted("length", &opening::length)};
        }
    };
    struct closing {
        static constexpr std::string_view name = "closing";
        MediaDuration advance;
        MediaDuration length;
        bool operator==(const closing&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{defaulted("advance", &closing::advance), defaulted("length", &closing::length)};
        }
    };
    struct between {
        static constexpr std::string_view name = "between";
        SourceTime start;
        SourceTime end;
        bool operator==(const between&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("start", &between::start), required("end", &between::end)};
        }
    };
    struct whole {
        static constexpr std::string_view name = "whole";
        bool operator==(const whole&) const = default;
    };
    std::variant<opening, closing, between, whole> cases;

    /// An `opening` or `closing` range with both of its lengths scaled by `factor`, rounded;
    /// `between` and `whole` stand as they are.
    ActionRange scaled(double factor) const;

    static std::string unknownCaseMessage(const std::string& name) { return "Unknown " + name; }

    bool operator==(const ActionRange&) const = default;
};

} // namespace ovik
