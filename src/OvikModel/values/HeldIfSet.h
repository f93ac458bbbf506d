#pragma once
// An optional field of a large record, kept in a small heap box when set and as nothing when
// not, so that the record stays small. The box is never changed: setting a value makes a new
// box, so copies of a record share boxes safely. Equality and hashing are those of the
// wrapped optional. As an `optional(...)` field of a record, its key is left out when empty.
#include <functional>
#include <memory>
#include <optional>

namespace ovik {

template <class T>
class HeldIfSet {
public:
    using value_type = T;

    HeldIfSet() = default;
    HeldIfSet(std::nullopt_t) {}
    HeldIfSet(T value) : box_(std::make_shared<const T>(std::move(value))) {}
    HeldIfSet(std::optional<T> value) {
        if (value) box_ = std::make_shared<const T>(std::move(*value));
    }

    HeldIfSet& operator=(T value) {
        box_ = std::make_shared<const T>(std::move(value));
        return *this;
    }
    HeldIfSet& operator=(std::nullopt_t) {
        box_.reset();
        return *this;
    }

    bool has_value() const { return box_ != nullptr; }
    explicit operator bool() const { return has_value(); }
    const T& operator*() const { return *box_; }
    const T* operator->() const { return box_.get(); }
    std::optional<T> optional() const { return box_ ? std::optional<T>(*box_) : std::nullopt; }

    bool operator==(const HeldIfSet& other) const {
        if (box_ == nullptr || other.box_ == nullptr) return box_ == other.box_;
        return *box_ == *other.box_;
    }

private:
    std::shared_ptr<const T> box_;
};

} // namespace ovik

template <class T>
struct std::hash<ovik::HeldIfSet<T>> {
    std::size_t operator()(const ovik::HeldIfSet<T>& held) const { return std::hash<std::optional<T>>()(held.optional()); }
};
