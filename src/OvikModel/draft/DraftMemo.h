#pragma once
// Values derived from a draft, kept so that they are computed once. Copies of a draft share
// one memo; an edit that changes what a value depends on clears it. The lock is held only to
// look up and to insert, never while a value is made, so two threads may both make one and
// the later insertion wins. The memo is not stored and plays no part in a draft's equality.
#include <memory>
#include <string>
#include <typeinfo>

namespace ovik {

struct DraftMemoKey {
    std::string name;
    auto operator<=>(const DraftMemoKey&) const = default;
};

class DraftMemo {
public:
    DraftMemo();

    /// The value under `key`, made by `make()` on a miss. A value kept under the same key
    /// with another type counts as a miss.
    template <class T, class Make>
    std::shared_ptr<const T> value(const DraftMemoKey& key, Make&& make) const {
        if (auto found = find(key, typeid(T))) return std::static_pointer_cast<const T>(found);
        auto made = std::make_shared<const T>(make());
        insert(key, typeid(T), made);
        return made;
    }

    void clear() const;

    bool operator==(const DraftMemo&) const { return true; }

private:
    struct Table;
    std::shared_ptr<const void> find(const DraftMemoKey& key, const std::type_info& type) const;
    void insert(const DraftMemoKey& key, const std::type_info& type, std::shared_ptr<const void> value) const;

    std::shared_ptr<Table> table_;
};

} // namespace ovik
