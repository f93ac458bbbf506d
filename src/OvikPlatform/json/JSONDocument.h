#pragma once
// A parsed JSON text, read in place from the parser's tape (one 64-bit word per value, two for
// a number), with light `JSONNode` views into it. Records decode from nodes directly: no tree
// of values is built on the way.
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "OvikPlatform/json/JSONValue.h"

namespace ovik {

class JSONNode;

class JSONDocument {
public:
    /// Throws `DecodingError` (data corrupted) when the bytes are not valid JSON in UTF-8.
    static JSONDocument parse(std::string_view bytes);

    JSONDocument(JSONDocument&&) noexcept;
    JSONDocument& operator=(JSONDocument&&) noexcept;
    ~JSONDocument();

    JSONNode root() const;

    struct Storage;

private:
    JSONDocument();
    std::unique_ptr<Storage> storage_; // the parser that owns the tape and its strings
};

class JSONNode {
public:
    enum class Kind : std::uint8_t { null, boolean, integer, number, string, array, object };

    Kind kind() const {
        switch (tag()) {
        case 'n': return Kind::null;
        case 't':
        case 'f': return Kind::boolean;
        case 'l': return Kind::integer;
        case 'u':
        case 'd': return Kind::number;
        case '"': return Kind::string;
        case '[': return Kind::array;
        default: return Kind::object;
        }
    }
    bool isNull() const { return tag() == 'n'; }
    bool boolean() const { return tag() == 't'; }
    std::int64_t integer() const { return std::int64_t(tape_[index_ + 1]); }
    /// A whole number from 0 to 2^64 - 1, written without fraction or exponent.
    bool unsignedInteger(std::uint64_t& out) const;
    /// A number of either kind as a double.
    double number() const;
    std::string_view string() const {
        const std::uint8_t* at = strings_ + (tape_[index_] & 0x00FFFFFFFFFFFFFFull);
        std::uint32_t length;
        std::memcpy(&length, at, sizeof length);
        return {reinterpret_cast<const char*>(at + sizeof length), length};
    }
    /// Elements of an array or members of an object.
    std::uint32_t size() const;

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
    JSONNode(const std::uint64_t* tape, const std::uint8_t* strings, std::uint32_t index)
        : tape_(tape), strings_(strings), index_(index) {}
    char tag() const { return char(tape_[index_] >> 56); }
    std::uint32_t payload32() const { return std::uint32_t(tape_[index_]); }
    /// The tape index just past this value: containers store it, numbers take two words.
    std::uint32_t after() const {
        const char t = tag();
        if (t == '[' || t == '{') return payload32();
        return index_ + ((t == 'l' || t == 'u' || t == 'd') ? 2 : 1);
    }
    JSONNode at(std::uint32_t index) const { return JSONNode(tape_, strings_, index); }

    const std::uint64_t* tape_;
    const std::uint8_t* strings_;
    std::uint32_t index_;
};

class JSONNode::Elements {
public:
    class iterator {
    public:
        explicit iterator(JSONNode node) : node_(node) {}
        JSONNode operator*() const { return node_; }
        iterator& operator++() {
            node_.index_ = node_.after();
            return *this;
        }
        bool operator!=(const iterator& other) const { return node_.index_ != other.node_.index_; }

    private:
        JSONNode node_;
    };
    iterator begin() const { return iterator(first_); }
    iterator end() const { return iterator(first_.at(last_)); }

private:
    friend class JSONNode;
    Elements(JSONNode first, std::uint32_t last) : first_(first), last_(last) {}
    JSONNode first_;
    std::uint32_t last_;
};

class JSONNode::Members {
public:
    struct Member {
        std::string_view key;
        JSONNode value;
    };
    class iterator {
    public:
        explicit iterator(JSONNode key) : key_(key) {}
        Member operator*() const { return {key_.string(), key_.at(key_.index_ + 1)}; }
        iterator& operator++() {
            key_.index_ = key_.at(key_.index_ + 1).after();
            return *this;
        }
        bool operator!=(const iterator& other) const { return key_.index_ != other.key_.index_; }

    private:
        JSONNode key_;
    };
    iterator begin() const { return iterator(first_); }
    iterator end() const { return iterator(first_.at(last_)); }

private:
    friend class JSONNode;
    Members(JSONNode first, std::uint32_t last) : first_(first), last_(last) {}
    JSONNode first_;
    std::uint32_t last_;
};

// Inline: every record and list decoded walks one of these.
inline JSONNode::Elements JSONNode::elements() const {
    const bool isArray = tag() == '[';
    return Elements(at(index_ + 1), isArray ? payload32() - 1 : index_ + 1);
}

inline JSONNode::Members JSONNode::members() const {
    const bool isObject = tag() == '{';
    return Members(at(index_ + 1), isObject ? payload32() - 1 : index_ + 1);
}

} // namespace ovik
