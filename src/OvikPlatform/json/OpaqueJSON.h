#pragma once
// A JSON value that this program keeps without reading it yet (records of features not built):
// held as its compact text with sorted keys, shared between copies. A big list costs about its
// own text instead of a tree of generic values, a copy of the draft costs one pointer, and the
// writer lays the text out again, so a draft writes back what it read.
#include <memory>
#include <string>
#include <string_view>

namespace ovik {

class JSONNode;
class JSONValue;

class OpaqueJSON {
public:
    /// JSON null.
    OpaqueJSON();
    explicit OpaqueJSON(const JSONValue& value);
    /// The subtree of a parsed document, written from the parser's tape without a tree.
    static OpaqueJSON of(JSONNode node);

    /// Compact, keys sorted, slashes not escaped.
    std::string_view text() const { return *text_; }
    /// The generic value, parsed from the text: for readers of one field, not for whole lists.
    JSONValue value() const;

    bool operator==(const OpaqueJSON& other) const { return text_ == other.text_ || *text_ == *other.text_; }

private:
    explicit OpaqueJSON(std::string text);
    std::shared_ptr<const std::string> text_;
};

} // namespace ovik
