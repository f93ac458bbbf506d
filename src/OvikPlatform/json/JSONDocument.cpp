#include "OvikPlatform/json/JSONDocument.h"

#include <simdjson.h>

#include "OvikPlatform/json/DecodingError.h"

namespace ovik {

struct JSONDocument::Storage {
    simdjson::dom::parser parser;
};

namespace {

// A parser's buffers are large; one finished parser per thread is kept for the next document,
// unless it grew for a very large one.
constexpr std::size_t keptParserCapacity = 16 * 1024 * 1024;
thread_local std::unique_ptr<JSONDocument::Storage> spareStorage;

} // namespace

JSONDocument::JSONDocument() : storage_(spareStorage ? std::move(spareStorage) : std::make_unique<Storage>()) {}
JSONDocument::JSONDocument(JSONDocument&&) noexcept = default;
JSONDocument& JSONDocument::operator=(JSONDocument&&) noexcept = default;

JSONDocument::~JSONDocument() {
    if (storage_ && !spareStorage && storage_->parser.capacity() <= keptParserCapacity)
        spareStorage = std::move(storage_);
}

JSONDocument JSONDocument::parse(std::string_view bytes) {
    JSONDocument document;
    simdjson::dom::element root;
    auto error = document.storage_->parser.parse(bytes.data(), bytes.size(), true).get(root);
    if (error) {
        throw DecodingError::notJSON(std::string("The given data was not valid JSON: ") + simdjson::error_message(error));
    }
    return document;
}

// Word 0 of the tape is the root marker; the document's value starts at word 1.
JSONNode JSONDocument::root() const {
    const simdjson::dom::document& doc = storage_->parser.doc;
    return JSONNode(doc.tape.get(), doc.string_buf.get(), 1);
}

double JSONNode::number() const {
    const std::uint64_t word = tape_[index_ + 1];
    switch (tag()) {
    case 'l': return double(std::int64_t(word));
    case 'u': return double(word);
    default: {
        double value;
        std::memcpy(&value, &word, sizeof value);
        return value;
    }
    }
}

bool JSONNode::unsignedInteger(std::uint64_t& out) const {
    if (tag() == 'u' || (tag() == 'l' && integer() >= 0)) return out = tape_[index_ + 1], true;
    return false;
}

std::uint32_t JSONNode::size() const {
    if (tag() != '[' && tag() != '{') return 0;
    const auto stored = std::uint32_t((tape_[index_] >> 32) & 0xFFFFFF);
    if (stored < 0xFFFFFF) return stored;
    // The stored count saturates: count by walking.
    std::uint32_t count = 0;
    if (tag() == '[')
        for (auto it = elements().begin(), end = elements().end(); it != end; ++it) ++count;
    else
        for (auto it = members().begin(), end = members().end(); it != end; ++it) ++count;
    return count;
}

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

bool JSONNode::find(std::string_view key, JSONNode& out, std::uint32_t& hint) const {
    if (tag() != '{') return false;
    const std::uint32_t first = index_ + 1, last = payload32() - 1;
    const std::uint32_t start = (hint > first && hint < last) ? hint : first;
    // Search from the hint to the end, then from the start up to the hint.
    for (int pass = 0; pass < 2; ++pass) {
        std::uint32_t i = pass == 0 ? start : first;
        const std::uint32_t stop = pass == 0 ? last : start;
        while (i < stop) {
            const JSONNode value = at(i + 1);
            const std::uint32_t next = value.after();
            if (at(i).string() == key) {
                out = value;
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
    case Kind::number: {
        // A whole number above the signed range keeps its digits, so that it writes back the same.
        std::uint64_t whole = 0;
        return unsignedInteger(whole) ? JSONValue(whole) : JSONValue(number());
    }
    case Kind::string: return JSONValue(string());
    case Kind::array: {
        JSONValue::Array array;
        array.reserve(size());
        for (JSONNode child : elements()) array.push_back(child.value());
        return JSONValue(std::move(array));
    }
    case Kind::object: {
        JSONValue::Object object;
        object.reserve(size());
        for (auto member : members()) {
            // A repeated key keeps its last value.
            auto [at, added] = object.emplace(member.key, member.value.value());
            if (!added) at->second = member.value.value();
        }
        return JSONValue(std::move(object));
    }
    }
    return JSONValue();
}

} // namespace ovik
