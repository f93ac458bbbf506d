#pragma once
// Splitting an object into parts that move one after another: characters, words, lines,
// members of a group or strokes. The stagger is written even at its default, so that a
// stored split always says its pace.
#include <cstdint>

#include "OvikModel/objects/SpreadRecord.h"
#include "OvikModel/values/Times.h"

namespace ovik {

enum class SplitUnit { character, word, line, member, stroke };
constexpr auto enumCases(SplitUnit*) {
    using enum SplitUnit;
    return EnumCases<SplitUnit, 5>{
        "Unit", {{character, "character"}, {word, "word"}, {line, "line"}, {member, "member"}, {stroke, "stroke"}}};
}

/// The order in which the parts start; `random` shuffles by its seed.
struct SplitOrder : Enumeration<SplitOrder> {
    struct forward {
        static constexpr std::string_view name = "forward";
        bool operator==(const forward&) const = default;
    };
    struct backward {
        static constexpr std::string_view name = "backward";
        bool operator==(const backward&) const = default;
    };
    struct center {
        static constexpr std::string_view name = "center";
        bool operator==(const center&) const = default;
    };
    struct random {
        static constexpr std::string_view name = "random";
        std::uint64_t seed = 0;
        static constexpr bool namedPayload = true; // stored as {"random": {"seed": n}}
        bool operator==(const random&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("seed", &random::seed)}; }
    };
    std::variant<forward, backward, center, random> cases;

    bool operator==(const SplitOrder&) const = default;
};

struct SplitFields {
    SplitUnit unit = SplitUnit::character;
    SplitOrder order;

    bool operator==(const SplitFields&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("unit", &SplitFields::unit), defaulted("order", &SplitFields::order)};
    }
};

struct Split : SplitFields {
    using Unit = SplitUnit;
    using Order = SplitOrder;

    MediaDuration stagger{60000};

    bool operator==(const Split&) const = default;

    using Declared = SplitFields;
    struct Spread {
        static void encode(const Split& split, JSONValue::Object& object) {
            encodeAlways(object, "stagger", split.stagger);
        }
        static void decode(Split& split, JSONNode node, const CodingPath& path) {
            decodeIfPresent(node, "stagger", path, split.stagger);
        }
    };
};

template <>
struct JSONCoding<Split> : SpreadRecordCoding<Split> {};

} // namespace ovik
