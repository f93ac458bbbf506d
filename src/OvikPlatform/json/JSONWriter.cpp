#include "OvikPlatform/json/JSONWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "OvikPlatform/json/DecodingError.h"
#include "OvikPlatform/json/JSONDocument.h"
#include "OvikPlatform/json/JSONNumberText.h"

namespace ovik {
namespace {

class Writer {
public:
    Writer(JSONWriteOptions options) : options_(options) {}

    void value(const JSONValue& v, const CodingPath& path, int level) {
        std::visit([&](const auto& x) { write(x, path, level); }, v.storage());
    }

    std::string out;

    void write(std::nullptr_t, const CodingPath&, int) { out += "null"; }
    void write(bool b, const CodingPath&, int) { out += b ? "true" : "false"; }
    void write(std::int64_t i, const CodingPath&, int) { appendInteger(i); }
    void write(std::uint64_t u, const CodingPath&, int) { appendInteger(u); }
    void write(double d, const CodingPath& path, int) {
        if (!std::isfinite(d)) throw nonFinite(path, d, "Double");
        JSONNumberText::appendDouble(out, d);
    }
    void write(float f, const CodingPath& path, int) {
        if (!std::isfinite(f)) throw nonFinite(path, f, "Float");
        JSONNumberText::appendFloat(out, f);
    }
    void write(const std::string& s, const CodingPath&, int) { JSONWriter::appendString(out, s, options_.escapeSlashes); }

    void write(const JSONValue::Array& array, const CodingPath& path, int level) {
        std::int64_t index = 0;
        container('[', ']', array, array.empty(), level,
                  [&](const JSONValue& element) { value(element, path.appending(index++), level + 1); });
    }

    void write(const JSONValue::Object& object, const CodingPath& path, int level) {
        container('{', '}', object, object.empty(), level, [&](const auto& member) {
            key(member.first);
            value(member.second, path.appending(member.first), level + 1);
        });
    }

    void write(const OpaqueJSON& opaque, const CodingPath&, int level) {
        if (!options_.pretty && !options_.escapeSlashes) out += opaque.text();
        else relayout(opaque.text(), level);
    }

    // A parsed value: keys sorted (a repeated key keeps its last value), as it reads back.
    void node(JSONNode n, int level) {
        std::uint64_t whole = 0;
        switch (n.kind()) {
        case JSONNode::Kind::null: out += "null"; break;
        case JSONNode::Kind::boolean: out += n.boolean() ? "true" : "false"; break;
        case JSONNode::Kind::integer: appendInteger(n.integer()); break;
        case JSONNode::Kind::number:
            if (n.unsignedInteger(whole)) appendInteger(whole);
            else JSONNumberText::appendDouble(out, n.number());
            break;
        case JSONNode::Kind::string: JSONWriter::appendString(out, n.string(), options_.escapeSlashes); break;
        case JSONNode::Kind::array: {
            const JSONNode::Elements elements = n.elements();
            const bool isEmpty = !(elements.begin() != elements.end());
            container('[', ']', elements, isEmpty, level, [&](JSONNode element) { node(element, level + 1); });
            break;
        }
        case JSONNode::Kind::object: {
            const std::vector<JSONNode::Members::Member> members = sortedMembers(n);
            container('{', '}', members, members.empty(), level, [&](const JSONNode::Members::Member& member) {
                key(member.key);
                node(member.value, level + 1);
            });
            break;
        }
        }
    }

private:
    JSONWriteOptions options_;

    template <class Integer>
    void appendInteger(Integer value) {
        char digits[24];
        out.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
    }

    template <class Items, class WriteItem>
    void container(char open, char close, const Items& items, bool isEmpty, int level, WriteItem writeItem) {
        if (isEmpty) return empty(open, close, level);
        out += open;
        bool first = true;
        for (const auto& item : items) {
            if (!first) out += ',';
            first = false;
            newline(level + 1);
            writeItem(item);
        }
        newline(level);
        out += close;
    }

    void key(std::string_view name) {
        JSONWriter::appendString(out, name, options_.escapeSlashes);
        out += options_.pretty ? " : " : ":";
    }

    static std::vector<JSONNode::Members::Member> sortedMembers(JSONNode object) {
        std::vector<JSONNode::Members::Member> members;
        members.reserve(object.size());
        for (const JSONNode::Members::Member member : object.members()) members.push_back(member);
        std::stable_sort(members.begin(), members.end(), [](const auto& a, const auto& b) { return a.key < b.key; });
        // Of a run of equal keys the last stays.
        const auto sameKey = [](const auto& a, const auto& b) { return a.key == b.key; };
        const auto last = std::unique(members.rbegin(), members.rend(), sameKey);
        members.erase(members.begin(), last.base());
        return members;
    }

    // Compact text with sorted keys laid out with these options: indented from `level`,
    // slashes escaped inside strings when asked. Escape pairs are copied as they stand.
    void relayout(std::string_view text, int level) {
        const char* at = text.data();
        const char* const end = at + text.size();
        while (at < end) {
            const char c = *at++;
            switch (c) {
            case '"': at = relayoutString(at, end); break;
            case '[':
            case '{':
                if (*at == ']' || *at == '}') {
                    empty(c, *at++, level);
                } else {
                    out += c;
                    newline(++level);
                }
                break;
            case ']':
            case '}':
                newline(--level);
                out += c;
                break;
            case ',':
                out += c;
                newline(level);
                break;
            case ':': out += options_.pretty ? " : " : ":"; break;
            default: {
                // A number or a word: up to the next mark.
                const char* stop = at;
                while (stop < end && *stop != ',' && *stop != ']' && *stop != '}') ++stop;
                out += c;
                out.append(at, stop);
                at = stop;
            }
            }
        }
    }

    // Copies a string's text after its opening quote, with the closing one; returns what follows.
    const char* relayoutString(const char* at, const char* end) {
        out += '"';
        for (;;) {
            const char* stop = at;
            while (stop < end && *stop != '"' && *stop != '\\' && *stop != '/') ++stop;
            out.append(at, stop);
            if (stop == end) return end;
            at = stop + 1;
            switch (*stop) {
            case '"': out += '"'; return at;
            case '/': out += options_.escapeSlashes ? "\\/" : "/"; break;
            default:
                out += '\\';
                if (at < end) out += *at++;
            }
        }
    }

    // An empty container keeps an empty line (no spaces) in the pretty form; its closing
    // bracket stands at the indent of the line that opened it.
    void empty(char open, char close, int level) {
        out += open;
        if (options_.pretty) {
            out += '\n';
            newline(level);
        }
        out += close;
    }

    void newline(int level) {
        if (!options_.pretty) return;
        out += '\n';
        out.append(std::size_t(level) * 2, ' ');
    }

    static EncodingError nonFinite(const CodingPath& path, double value, const char* type) {
        std::string name = std::isnan(value) ? "nan" : (value > 0 ? "infinity" : "-infinity");
        return EncodingError(path.keys(), std::string("Unable to encode ") + type + "." + name + " directly in JSON.");
    }
};

} // namespace

namespace JSONWriter {

std::string write(const JSONValue& value, JSONWriteOptions options) {
    Writer writer(options);
    writer.value(value, CodingPath(), 0);
    return std::move(writer.out);
}

std::string write(JSONNode node, JSONWriteOptions options) {
    Writer writer(options);
    writer.node(node, 0);
    return std::move(writer.out);
}

void appendString(std::string& out, std::string_view text, bool escapeSlashes) {
    static constexpr char hex[] = "0123456789abcdef";
    out += '"';
    for (char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        switch (c) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\b': out += "\\b"; break;
        case '\f': out += "\\f"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        case '/':
            out += escapeSlashes ? "\\/" : "/";
            break;
        default:
            if (byte < 0x20) {
                out += "\\u00";
                out += hex[byte >> 4];
                out += hex[byte & 15];
            } else {
                out += c;
            }
        }
    }
    out += '"';
}

} // namespace JSONWriter
} // namespace ovik
