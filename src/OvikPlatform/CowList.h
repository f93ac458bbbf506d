#pragma once
// A list shared between copies until one of them changes it: copying a draft costs a pointer,
// and an edit copies only the lists it touches.
#include <memory>
#include <vector>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

template <class T>
class CowList {
public:
    using value_type = T;

    CowList() = default;
    CowList(std::vector<T> items) : items_(std::make_shared<std::vector<T>>(std::move(items))) {}
    CowList(std::initializer_list<T> items) : CowList(std::vector<T>(items)) {}

    const std::vector<T>& items() const { return items_ ? *items_ : none(); }
    operator const std::vector<T>&() const { return items(); }
    auto begin() const { return items().begin(); }
    auto end() const { return items().end(); }
    std::size_t size() const { return items().size(); }
    bool empty() const { return items().empty(); }
    const T& operator[](std::size_t i) const { return items()[i]; }

    /// The list to change: copied first when another holder shares it.
    std::vector<T>& mutableItems() {
        if (!items_) items_ = std::make_shared<std::vector<T>>();
        else if (items_.use_count() > 1) items_ = std::make_shared<std::vector<T>>(*items_);
        return *items_;
    }

    bool operator==(const CowList& other) const { return items_ == other.items_ || items() == other.items(); }

private:
    static const std::vector<T>& none() {
        static const std::vector<T> nothing;
        return nothing;
    }
    std::shared_ptr<std::vector<T>> items_; // never changed while shared
};

template <class T>
struct JSONCoding<CowList<T>> {
    static JSONValue encode(const CowList<T>& list) { return JSONCoding<std::vector<T>>::encode(list.items()); }
    static CowList<T> decode(JSONNode node, const CodingPath& path) {
        return CowList<T>(JSONCoding<std::vector<T>>::decode(node, path));
    }
};

} // namespace ovik
