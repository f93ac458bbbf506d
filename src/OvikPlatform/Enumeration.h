#pragma once
// Shared helpers for enumerations with payload. Such a type declares one nested struct per case
// (each with `static constexpr std::string_view name`), holds them in a `std::variant` member
// named `cases`, and derives from `Enumeration<Self>` for `is<Case>()`, `as<Case>()`, `caseName()`.
#include <string_view>
#include <type_traits>
#include <variant>

namespace ovik {

template <class Self>
struct Enumeration {
    template <class Case>
    bool is() const {
        return std::holds_alternative<Case>(self().cases);
    }
    template <class Case>
    const Case& as() const {
        return std::get<Case>(self().cases);
    }
    template <class Case>
    Case& as() {
        return std::get<Case>(static_cast<Self&>(*this).cases);
    }
    template <class Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit(std::forward<Visitor>(visitor), self().cases);
    }
    std::string_view caseName() const {
        return std::visit([](const auto& c) { return std::decay_t<decltype(c)>::name; }, self().cases);
    }
    bool operator==(const Enumeration&) const = default;

private:
    const Self& self() const { return static_cast<const Self&>(*this); }
};

/// Names of the cases of a plain enumeration, as written in JSON: declare next to the enum
/// `constexpr auto enumCases(E*) { return EnumCases<E, N>{"E", {{{E::a, "a"}, ...}}}; }`.
template <class E, std::size_t N>
struct EnumCases {
    std::string_view typeName;
    std::pair<E, std::string_view> cases[N];

    constexpr std::string_view name(E value) const {
        for (const auto& [v, n] : cases)
            if (v == value) return n;
        return {};
    }
    constexpr bool find(std::string_view text, E& out) const {
        for (const auto& [v, n] : cases)
            if (n == text) return out = v, true;
        return false;
    }
};

template <class E>
concept NamedEnum = std::is_enum_v<E> && requires { enumCases(static_cast<E*>(nullptr)); };

template <NamedEnum E>
constexpr std::string_view caseName(E value) {
    return enumCases(static_cast<E*>(nullptr)).name(value);
}

} // namespace ovik
