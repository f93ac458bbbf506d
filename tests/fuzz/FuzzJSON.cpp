// The JSON reader and the record codec on arbitrary bytes: either a typed error or a value that
// writes and reads back to the same value, and whose written form is stable, kept opaque or not.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "OvikPlatform/json/JSONCoding.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace {

using namespace ovik;

enum class Shape { box, ring };
constexpr auto enumCases(Shape*) { return EnumCases<Shape, 2>{"Shape", {{Shape::box, "box"}, {Shape::ring, "ring"}}}; }

struct Part : Enumeration<Part> {
    struct none {
        static constexpr std::string_view name = "none";
        bool operator==(const none&) const = default;
    };
    struct label {
        static constexpr std::string_view name = "label";
        std::string value;
        bool operator==(const label&) const = default;
    };
    std::variant<none, label> cases;
    bool operator==(const Part&) const = default;
};

struct Record {
    std::int64_t id = 0;
    std::optional<double> scale;
    float weight = 1;
    Shape shape = Shape::box;
    std::vector<Part> parts;
    std::map<std::string, bool> flags;
    JSONValue rest;
    bool operator==(const Record&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("id", &Record::id),          optional("scale", &Record::scale),
                          defaulted("weight", &Record::weight), defaulted("shape", &Record::shape),
                          defaulted("parts", &Record::parts),   defaulted("flags", &Record::flags),
                          defaulted("rest", &Record::rest)};
    }
};

void check(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        const JSONValue value = JSONValue::parse(bytes);
        // Kept as opaque text, the value writes the same bytes in every layout.
        const JSONValue kept = decodeJSON<OpaqueJSON>(bytes);
        for (bool pretty : {false, true}) {
            const std::string text = JSONWriter::write(value, {.pretty = pretty, .escapeSlashes = pretty});
            // An integral double reads back as an integer: the loose comparison allows that.
            check(JSONValue::parse(text).same(value));
            check(JSONWriter::write(kept, {.pretty = pretty, .escapeSlashes = pretty}) == text);
            check(JSONWriter::write(kept, {.pretty = pretty, .escapeSlashes = !pretty}) ==
                  JSONWriter::write(value, {.pretty = pretty, .escapeSlashes = !pretty}));
        }
    } catch (const DecodingError&) {
        return 0;
    }
    try {
        const Record record = decodeJSON<Record>(bytes);
        const std::string text = encodeJSON(record).compact();
        check(encodeJSON(decodeJSON<Record>(std::string_view(text))).compact() == text);
    } catch (const DecodingError&) {
    } catch (const EncodingError&) {
    }
    return 0;
}
