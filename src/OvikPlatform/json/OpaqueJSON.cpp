#include "OvikPlatform/json/OpaqueJSON.h"

#include "OvikPlatform/json/JSONDocument.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

const std::shared_ptr<const std::string>& nullText() {
    static const auto text = std::make_shared<const std::string>("null");
    return text;
}

} // namespace

OpaqueJSON::OpaqueJSON() : text_(nullText()) {}

OpaqueJSON::OpaqueJSON(const JSONValue& value) : OpaqueJSON(value.compact()) {}

OpaqueJSON::OpaqueJSON(std::string text) {
    // A text grown by appending may hold twice its length.
    text.shrink_to_fit();
    text_ = std::make_shared<const std::string>(std::move(text));
}

OpaqueJSON OpaqueJSON::of(JSONNode node) { return OpaqueJSON(JSONWriter::write(node)); }

JSONValue OpaqueJSON::value() const { return JSONValue::parse(*text_); }

} // namespace ovik
