#include "OvikModel/time/ClockLoop.h"

#include "OvikL10n/L10n.h"

namespace ovik {

JSONValue JSONCoding<ClockLoop>::encode(const ClockLoop& loop) {
    if (loop.is<ClockLoop::forever>()) return JSONValue(ClockLoop::forever::name);
    return encodeJSON(loop.as<ClockLoop::count>().value);
}

ClockLoop JSONCoding<ClockLoop>::decode(JSONNode node, const CodingPath& path) {
    if (node.kind() == JSONNode::Kind::integer || node.kind() == JSONNode::Kind::number)
        return ClockLoop::makeCount(decodeJSON<std::int64_t>(node, path));
    if (decodeJSON<std::string>(node, path) != ClockLoop::forever::name)
        throw DecodingError::dataCorrupted(path, L10n::text("model.clock.validation.loopType"));
    return ClockLoop::makeForever();
}

} // namespace ovik
