#include "OvikModel/draft/DraftMemo.h"

#include <map>
#include <mutex>
#include <typeindex>

namespace ovik {

struct DraftMemo::Table {
    struct Entry {
        std::type_index type;
        std::shared_ptr<const void> value;
    };
    std::mutex lock;
    std::map<DraftMemoKey, Entry> entries;
};

DraftMemo::DraftMemo() : table_(std::make_shared<Table>()) {}

std::shared_ptr<const void> DraftMemo::find(const DraftMemoKey& key, const std::type_info& type) const {
    const std::lock_guard guard(table_->lock);
    const auto found = table_->entries.find(key);
    if (found == table_->entries.end() || found->second.type != std::type_index(type)) return nullptr;
    return found->second.value;
}

void DraftMemo::insert(const DraftMemoKey& key, const std::type_info& type, std::shared_ptr<const void> value) const {
    const std::lock_guard guard(table_->lock);
    table_->entries.insert_or_assign(key, Table::Entry{std::type_index(type), std::move(value)});
}

void DraftMemo::clear() const {
    const std::lock_guard guard(table_->lock);
    table_->entries.clear();
}

} // namespace ovik
