#include "OvikModel/objects/FillPaint.h"

namespace ovik {

void encodeFillPaint(const std::optional<FillPaint>& paint, JSONValue::Object& object) {
    if (!paint) return;
    if (paint->is<FillPaint::color>()) {
        object.insert_or_assign("fill", encodeJSON(paint->as<FillPaint::color>().value));
        return;
    }
    const auto& gradient = paint->as<FillPaint::gradient>();
    object.insert_or_assign("fill", encodeJSON(gradient.from));
    object.insert_or_assign("fillGradient", encodeJSON(FillPaint::Ramp{gradient.to, gradient.angleDegrees}));
}

std::optional<FillPaint> decodeFillPaint(JSONNode object, const CodingPath& path) {
    JSONNode fill = object;
    if (!object.find("fill", fill) || fill.isNull()) return std::nullopt;
    const RGBA from = decodeJSON<RGBA>(fill, path.appending("fill"));
    JSONNode ramp = object;
    if (!object.find("fillGradient", ramp) || ramp.isNull()) return FillPaint::makeColor(from);
    const auto [to, angleDegrees] = decodeJSON<FillPaint::Ramp>(ramp, path.appending("fillGradient"));
    return FillPaint::makeGradient(from, to, angleDegrees);
}

} // namespace ovik
