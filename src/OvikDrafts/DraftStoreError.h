#pragma once
// The failures of the draft store, and the one exception that carries them. Each case holds
// finished text or the data to form it; what() is the message a person reads.
#include <cstdint>
#include <exception>
#include <string>
#include <type_traits>
#include <variant>

#include "OvikModel/values/Identifier.h"
#include "OvikPlatform/Enumeration.h"
#include "OvikPlatform/Error.h"

namespace ovik {

struct DraftStoreError : Enumeration<DraftStoreError> {
    struct notFound {
        static constexpr std::string_view name = "notFound";
        DraftID value;
        bool operator==(const notFound&) const = default;
    };
    struct unreadable {
        static constexpr std::string_view name = "unreadable";
        std::string value;
        bool operator==(const unreadable&) const = default;
    };
    struct unsupportedSchema {
        static constexpr std::string_view name = "unsupportedSchema";
        std::int64_t value = 0;
        bool operator==(const unsupportedSchema&) const = default;
    };
    struct writeFailed {
        static constexpr std::string_view name = "writeFailed";
        std::string value;
        bool operator==(const writeFailed&) const = default;
    };
    struct nameTaken {
        static constexpr std::string_view name = "nameTaken";
        std::string value;
        bool operator==(const nameTaken&) const = default;
    };
    struct invalidName {
        static constexpr std::string_view name = "invalidName";
        std::string value;
        bool operator==(const invalidName&) const = default;
    };
    struct notAnImage {
        static constexpr std::string_view name = "notAnImage";
        std::string value;
        bool operator==(const notAnImage&) const = default;
    };
    std::variant<notFound, unreadable, unsupportedSchema, writeFailed, nameTaken, invalidName, notAnImage> cases;

    template <class Case>
    static DraftStoreError make(Case c) {
        DraftStoreError error;
        error.cases = std::move(c);
        return error;
    }

    /// The finished message a person reads.
    std::string localizedDescription() const;

    bool operator==(const DraftStoreError&) const = default;
};

/// The exception every operation of the store throws.
class DraftStoreFailure : public Error {
public:
    explicit DraftStoreFailure(DraftStoreError error);
    template <class Case>
        requires std::is_constructible_v<decltype(DraftStoreError::cases), Case>
    explicit DraftStoreFailure(Case c) : DraftStoreFailure(DraftStoreError::make(std::move(c))) {}

    const DraftStoreError& error() const { return error_; }

private:
    DraftStoreError error_;
};

/// A store error passes unchanged; any other becomes `writeFailed` with its localized
/// description.
DraftStoreError storeError(const std::exception& error);

} // namespace ovik
