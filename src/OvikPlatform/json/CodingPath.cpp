#include "OvikPlatform/json/CodingPath.h"

#include <algorithm>

namespace ovik {

std::vector<CodingKey> CodingPath::keys() const {
    std::vector<CodingKey> out;
    for (const CodingPath* link = this; link != nullptr; link = link->parent_) {
        if (link->isRoot()) continue;
        out.push_back(link->index_ >= 0 ? CodingKey{{}, link->index_} : CodingKey{std::string(link->key_), -1});
    }
    std::reverse(out.begin(), out.end());
    return out;
}

std::string CodingPath::text() const { return codingPathText(keys()); }

std::string codingPathText(const std::vector<CodingKey>& keys) {
    std::string out;
    for (const CodingKey& key : keys) {
        if (key.isIndex()) {
            out += "[" + std::to_string(key.index) + "]";
        } else {
            if (!out.empty()) out += ".";
            out += key.key;
        }
    }
    return out;
}

} // namespace ovik
