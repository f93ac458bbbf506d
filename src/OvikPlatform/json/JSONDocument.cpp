#include "OvikPlatform/json/JSONDocument.h"

#include <simdjson.h>

#include "OvikPlatform/json/DecodingError.h"

namespace ovik {

struct JSONDocument::Storage {
    simdjson::dom::parser parser;
};

class JSONDocument::Builder {
public:
    explicit Builder(std::vector<Entry>& entries) : entries_(entries) {}

    void add(simdjson::dom::element element) {
        using simdjson::dom::element_type;
        const std::size_t at = entries_.size();
        entries_.emplace_back();
        Entry& e = entries_[at];
        e.count = 0;
        switch (element.type()) {
        case element_type::NULL_VALUE: e.kind = Kind::null; break;
        case element_type::BOOL:
            e.kind = Kind::boolean;
            e.boolean = element.get_bool().value_unsafe();
            break;
        case element_type::INT64:
            e.kind = Kind::integer;
            e.integer = element.get_int64().value_unsafe();
            break;
        case element_type::UINT64:
            e.kind = Kind::number;
            e.number = double(element.get_uint64().value_unsafe());
            break;
        case element_type::DOUBLE:
            e.kind = Kind::number;
            e.number = element.get_double().value_unsafe();
            break;
        case element_type::STRING: setString(at, element.get_string().value_unsafe()); break;
        case element_type::ARRAY: addArray(at, element.get_array().value_unsafe()); break;
        case element_type::OBJECT: addObject(at, element.get_object().value_unsafe()); break;
        }
        entries_[at].end = std::uint32_t(entries_.size());
    }

private:
    std::vector<Entry>& entries_;

    void setString(std::size_t at, std::string_view text) {
        entries_[at].kind = Kind::string;
        entries_[at].text = text.data();
        entries_[at].count = std::uint32_t(text.size());
    }

    void addArray(std::size_t at, simdjson::dom::array array) {
        entries_[at].kind = Kind::array;
        std::uint32_t count = 0;
        for (simdjson::dom::element child : array) {
            add(child);
            ++count;
        }
        entries_[at].count = count;
    }

    void addObject(std::size_t at, simdjson::dom::object object) {
        entries_[at].kind = Kind::object;
        std::uint32_t count = 0;
        for (simdjson::dom::key_value_pair member : object) {
            const std::size_t keyAt = entries_.size();
            entries_.emplace_back();
            setString(keyAt, member.key);
            entries_[keyAt].end = std::uint32_t(keyAt + 1);
            add(member.value);
            ++count;
        }
        entries_[at].count = count;
    }
};

JSONDocument::JSONDocument() : storage_(std::make_unique<Storage>()) {}
JSONDocument::JSONDocument(JSONDocument&&) noexcept = default;
JSONDocument& JSONDocument::operator=(JSONDocument&&) noexcept = default;
JSONDocument::~JSONDocument() = default;

JSONDocument JSONDocument::parse(std::string_view bytes) {
    JSONDocument document;
    simdjson::dom::element root;
    auto error = document.storage_->parser.parse(bytes.data(), bytes.size(), true).get(root);
    if (error) {
        throw DecodingError::dataCorrupted(CodingPath(), std::string("The given data was not valid JSON: ") +
                                                             simdjson::error_message(error));
    }
    document.entries_.reserve(bytes.size() / 8 + 1);
    Builder(document.entries_).add(root);
    return document;
}

JSONNode JSONDocument::root() const { return JSONNode(this, 0); }

const char* JSONNode::kindDescription() const {
    switch (kind()) {
    case Kind::null: return "null";
    case Kind::boolean: return "a boolean";
    case Kind::integer:
    case Kind::number: return "a number";
    case Kind::string: return "a string";
    case Kind::array: return "an array";
    case Kind::object: return "a dictionary";
    }
    return "a value";
}

JSONNode::Elements JSONNode::elements() const {
    return Elements(document_, index_ + 1, kind() == Kind::array ? entry().end : index_ + 1);
}

JSONNode::Members JSONNode::members() const {
    return Members(document_, index_ + 1, kind() == Kind::object ? entry().end : index_ + 1);
}

bool JSONNode::find(std::string_view key, JSONNode& out, std::uint32_t& hint) const {
    if (kind() != Kind::object) return false;
    const std::uint32_t first = index_ + 1, last = entry().end;
    const std::uint32_t start = (hint > first && hint < last) ? hint : first;
    const auto& entries = document_->entries_;
    // Search from the hint to the end, then from the start up to the hint.
    for (int pass = 0; pass < 2; ++pass) {
        std::uint32_t i = pass == 0 ? start : first;
        const std::uint32_t stop = pass == 0 ? last : start;
        while (i < stop) {
            const auto& keyEntry = entries[i];
            const std::uint32_t next = entries[i + 1].end;
            if (keyEntry.count == key.size() && std::string_view(keyEntry.text, keyEntry.count) == key) {
                out = JSONNode(document_, i + 1);
                hint = next;
                return true;
            }
            i = next;
        }
    }
    return false;
}

bool JSONNode::find(std::string_view key, JSONNode& out) const {
    std::uint32_t hint = 0;
    return find(key, out, hint);
}

JSONValue JSONNode::value() const {
    switch (kind()) {
    case Kind::null: return JSONValue();
    case Kind::boolean: return JSONValue(boolean());
    case Kind::integer: return JSONValue(integer());
    case Kind::number: return JSONValue(entry().number);
    case Kind::string: return JSONValue(string());
    case Kind::array: {
        JSONValue::Array array;
        array.reserve(size());
        for (JSONNode child : elements()) array.push_back(child.value());
        return JSONValue(std::move(array));
    }
    case Kind::object: {
        JSONValue::Object object;
        for (auto member : members()) object.insert_or_assign(std::string(member.key), member.value.value());
        return JSONValue(std::move(object));
    }
    }
    return JSONValue();
}

} // namespace ovik
