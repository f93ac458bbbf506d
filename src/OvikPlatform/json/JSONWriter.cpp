#include "OvikPlatform/json/JSONWriter.h"

#include <cmath>

#include "OvikPlatform/json/DecodingError.h"
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

private:
    JSONWriteOptions options_;

    void write(std::nullptr_t, const CodingPath&, int) { out += "null"; }
    void write(bool b, const CodingPath&, int) { out += b ? "true" : "false"; }
    void write(std::int64_t i, const CodingPath&, int) { out += std::to_string(i); }
    void write(std::uint64_t u, const CodingPath&, int) { out += std::to_string(u); }
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
        if (array.empty()) return empty('[', ']', level);
        out += '[';
        std::int64_t index = 0;
        for (const JSONValue& element : array) {
            if (index > 0) out += ',';
            newline(level + 1);
            value(element, path.appending(index++), level + 1);
        }
        newline(level);
        out += ']';
    }

    void write(const JSONValue::Object& object, const CodingPath& path, int level) {
        if (object.empty()) return empty('{', '}', level);
        out += '{';
        bool first = true;
        for (const auto& [key, member] : object) {
            if (!first) out += ',';
            first = false;
            newline(level + 1);
            JSONWriter::appendString(out, key, options_.escapeSlashes);
            out += options_.pretty ? " : " : ":";
            value(member, path.appending(key), level + 1);
        }
        newline(level);
        out += '}';
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
