#pragma once
// A large record shared between copies until one of them changes it. It keeps a rare, large
// case of an enumeration from making every value of that enumeration as large: the box is one
// pointer wide, and copying a draft copies no record that stays the same.
#include <memory>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

template <class T>
class CowBox {
public:
    CowBox() : value_(std::make_shared<T>()) {}
    CowBox(T value) : value_(std::make_shared<T>(std::move(value))) {}

    const T& operator*() const { return *value_; }
    const T* operator->() const { return value_.get(); }

    /// The record to change: copied first when another holder shares it.
    T& mutate() {
        if (value_.use_count() > 1) value_ = std::make_shared<T>(*value_);
        return *value_;
    }

    bool operator==(const CowBox& other) const { return value_ == other.value_ || *value_ == *other.value_; }

private:
    std::shared_ptr<T> value_; // never changed while shared
};

template <class T>
struct JSONCoding<CowBox<T>> {
    static JSONValue encode(const CowBox<T>& box) { return JSONCoding<T>::encode(*box); }
    static CowBox<T> decode(JSONNode node, const CodingPath& path) { return CowBox<T>(JSONCoding<T>::decode(node, path)); }
};

} // namespace ovik
