#pragma once
// A parsed JSON text held as one flat, read-only tape (simdjson does the raw parse), with
// light `JSONNode` views into it. Records decode from nodes without building a JSONValue tree.
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "OvikPlatform/json/JSONValue.h"

namespace ovik {

class JSONNode;

class JSONDocument {
public:
    enum class Kind : std::uint8_t { null, boolean, integer, number, string, array, object };

    /// Throws `DecodingError` (data corrupted) when the bytes are not valid JSON in UTF-8.
    static JSONDocument parse(std::string_view bytes);

    JSONDocument(JSONDocument&&) noexcept;
    JSONDocument& operator=(JSONDocument&&) noexcept;
    ~JSONDocument();

    JSONNode root() const;

private:
    friend class JSONNode;
    struct Entry {
        Kind kind;
        std::uint32_t end;   // index just past this entry's subtree
        std::uint32_t count; // elements, members, or the length of a string
        union {
            bool boolean;
            std::int64_t integer;
            double number;
            const char* text;
        };
    };
    struct Storage;
    class Builder;

    JSONDocument();
    std::vector<Entry> entries_;
    std::unique_ptr<Storage> storage_; // keeps the parser whose buffer the strings point into
};

class JSONNode {
public:
    using Kind = JSONDocument::Kind;

    Kind kind() const { return entry().kind; }
    bool isNull() const { return kind() == Kind::null; }
    bool boolean() const { return entry().boolean; }
    std::int64_t integer() const { return entry().integer; }
    /// A number of either kind as a double.
    double number() const { return kind() == Kind::integer ? double(entry().integer) : entry().number; }
    std::string_view string() const { return {entry().text, entry().count}; }
    /// Elements of an array or members of an object.
    std::uint32_t size() const { return entry().count; }

    /// A name for the kind, as a decoding error words it ("a string", "an array", ...).
    const char* kindDescription() const;

    class Elements;
    class Members;
    Elements elements() const;
    Members members() const;

    /// The value under `key` of an object, or nothing. `hint` remembers where the last key
    /// was found, so that reading keys in the order they are stored costs one step each.
    bool find(std::string_view key, JSONNode& out, std::uint32_t& hint) const;
    bool find(std::string_view key, JSONNode& out) const;

    /// A generic value of this subtree, for fields kept as opaque JSON.
    JSONValue value() const;

private:
    friend class JSONDocument;
    JSONNode(const JSONDocument* document, std::uint32_t index) : document_(document), index_(index) {}
    const JSONDocument::Entry& entry() const { return document_->entries_[index_]; }
    const JSONDocument* document_;
    std::uint32_t index_;
};

class JSONNode::Elements {
public:
    class iterator {
    public:
        iterator(const JSONDocument* d, std::uint32_t i) : document_(d), index_(i) {}
        JSONNode operator*() const { return JSONNode(document_, index_); }
        iterator& operator++() {
            index_ = document_->entries_[index_].end;
            return *this;
        }
        bool operator!=(const iterator& other) const { return index_ != other.index_; }

    private:
        const JSONDocument* document_;
        std::uint32_t index_;
    };
    iterator begin() const { return {document_, first_}; }
    iterator end() const { return {document_, last_}; }

private:
    friend class JSONNode;
    Elements(const JSONDocument* d, std::uint32_t first, std::uint32_t last) : document_(d), first_(first), last_(last) {}
    const JSONDocument* document_;
    std::uint32_t first_, last_;
};

class JSONNode::Members {
public:
    struct Member {
        std::string_view key;
        JSONNode value;
    };
    class iterator {
    public:
        iterator(const JSONDocument* d, std::uint32_t i) : document_(d), index_(i) {}
        Member operator*() const {
            JSONNode key(document_, index_);
            return {key.string(), JSONNode(document_, index_ + 1)};
        }
        iterator& operator++() {
            index_ = document_->entries_[index_ + 1].end;
            return *this;
        }
        bool operator!=(const iterator& other) const { return index_ != other.index_; }

    private:
        const JSONDocument* document_;
        std::uint32_t index_;
    };
    iterator begin() const { return {document_, first_}; }
    iterator end() const { return {document_, last_}; }

private:
    friend class JSONNode;
    Members(const JSONDocument* d, std::uint32_t first, std::uint32_t last) : document_(d), first_(first), last_(last) {}
    const JSONDocument* document_;
    std::uint32_t first_, last_;
};

} // namespace ovik
