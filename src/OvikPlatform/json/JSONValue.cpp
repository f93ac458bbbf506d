#include "OvikPlatform/json/JSONValue.h"

#include <algorithm>

#include "OvikPlatform/json/JSONDocument.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

std::vector<std::string_view> pathPieces(std::string_view path) {
    std::vector<std::string_view> pieces;
    while (!path.empty()) {
        const std::size_t dot = path.find('.');
        std::string_view piece = path.substr(0, dot);
        if (!piece.empty()) pieces.push_back(piece);
        if (dot == std::string_view::npos) break;
        path.remove_prefix(dot + 1);
    }
    return pieces;
}

bool equalIgnoringASCIICase(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        auto lower = [](char c) { return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c; };
        if (lower(a[i]) != lower(b[i])) return false;
    }
    return true;
}

JSONValue settingPieces(const JSONValue& base, const std::vector<std::string_view>& pieces, std::size_t at,
                        JSONValue leaf) {
    if (at == pieces.size()) return leaf;
    JSONValue::Object object;
    if (const JSONValue::Object* existing = base.object()) object = *existing;
    auto found = object.find(pieces[at]);
    const JSONValue child = found == object.end() ? JSONValue() : found->second;
    object.insert_or_assign(std::string(pieces[at]), settingPieces(child, pieces, at + 1, std::move(leaf)));
    return JSONValue(std::move(object));
}

} // namespace

JSONObject::JSONObject(std::initializer_list<value_type> members) {
    members_.reserve(members.size());
    for (const value_type& member : members) emplace(member.first, member.second);
}

JSONObject::iterator JSONObject::lowerBound(std::string_view key) {
    return std::lower_bound(members_.begin(), members_.end(), key,
                            [](const value_type& member, std::string_view k) { return std::string_view(member.first) < k; });
}

JSONObject::iterator JSONObject::find(std::string_view key) {
    const auto at = lowerBound(key);
    return at != members_.end() && at->first == key ? at : members_.end();
}

JSONObject::const_iterator JSONObject::find(std::string_view key) const {
    return const_cast<JSONObject*>(this)->find(key);
}

std::pair<JSONObject::iterator, bool> JSONObject::emplace(std::string_view key, JSONValue value) {
    auto at = lowerBound(key);
    if (at != members_.end() && at->first == key) return {at, false};
    // Members usually arrive in key order: then this is an append.
    return {members_.insert(at, value_type(std::string(key), std::move(value))), true};
}

std::pair<JSONObject::iterator, bool> JSONObject::insert_or_assign(std::string_view key, JSONValue value) {
    auto [at, added] = emplace(key, JSONValue());
    at->second = std::move(value);
    return {at, added};
}

void JSONObject::merge(const JSONObject& other) {
    for (const value_type& member : other) emplace(member.first, member.second);
}

std::size_t JSONObject::erase(std::string_view key) {
    const auto at = find(key);
    if (at == members_.end()) return 0;
    members_.erase(at);
    return 1;
}

bool JSONObject::operator==(const JSONObject& other) const { return members_ == other.members_; }

JSONValue JSONValue::parse(std::string_view text) { return JSONDocument::parse(text).root().value(); }

bool JSONValue::number(double& out) const {
    if (const auto* i = std::get_if<std::int64_t>(&storage_)) return out = double(*i), true;
    if (const auto* u = std::get_if<std::uint64_t>(&storage_)) return out = double(*u), true;
    if (const auto* d = std::get_if<double>(&storage_)) return out = *d, true;
    if (const auto* f = std::get_if<float>(&storage_)) return out = double(*f), true;
    return false;
}

std::string JSONValue::compact() const { return JSONWriter::write(*this, {.pretty = false, .escapeSlashes = false}); }

std::string JSONValue::prettyPrinted() const {
    return JSONWriter::write(*this, {.pretty = true, .escapeSlashes = false});
}

const JSONValue* JSONValue::at(std::string_view path) const {
    const JSONValue* current = this;
    for (std::string_view piece : pathPieces(path)) {
        const Object* object = current->object();
        if (object == nullptr) return nullptr;
        auto found = object->find(piece);
        if (found == object->end()) return nullptr;
        current = &found->second;
    }
    return current;
}

JSONValue JSONValue::setting(std::string_view path, JSONValue leaf) const {
    return settingPieces(*this, pathPieces(path), 0, std::move(leaf));
}

bool JSONValue::same(const JSONValue& other) const {
    double a = 0, b = 0;
    if (number(a) && other.number(b)) return a == b;
    if (const std::string* s = string()) {
        const std::string* t = other.string();
        if (t == nullptr) return false;
        return *s == *t || (s->find('#') != std::string::npos && equalIgnoringASCIICase(*s, *t));
    }
    if (const Array* x = array()) {
        const Array* y = other.array();
        if (y == nullptr || x->size() != y->size()) return false;
        for (std::size_t i = 0; i < x->size(); ++i)
            if (!(*x)[i].same((*y)[i])) return false;
        return true;
    }
    if (const Object* x = object()) {
        const Object* y = other.object();
        if (y == nullptr || x->size() != y->size()) return false;
        for (auto i = x->begin(), j = y->begin(); i != x->end(); ++i, ++j)
            if (i->first != j->first || !i->second.same(j->second)) return false;
        return true;
    }
    return storage_.index() == other.storage_.index() && *this == other;
}

} // namespace ovik
