#include "OvikModel/style/Style.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace ovik {

JSONValue StyleSectionSetCoding::encode(const std::set<StyleSection>& sections) {
    std::vector<std::string_view> names;
    for (StyleSection section : sections) names.push_back(caseName(section));
    std::sort(names.begin(), names.end());
    JSONValue::Array array(names.begin(), names.end());
    return JSONValue(std::move(array));
}

std::set<StyleSection> StyleSectionSetCoding::decode(JSONNode node, const CodingPath& path) {
    const auto list = JSONCoding<std::vector<StyleSection>>::decode(node, path);
    return {list.begin(), list.end()};
}

Style Style::resetting(StyleSection section) const {
    const Style plain = original();
    Style out = *this;
    switch (section) {
    case StyleSection::background:
        out.background = plain.background;
        out.backgroundBlur = plain.backgroundBlur;
        break;
    case StyleSection::padding: out.padding = plain.padding; break;
    case StyleSection::cornerRadius: out.cornerRadius = plain.cornerRadius; break;
    case StyleSection::shadow: out.shadow = plain.shadow; break;
    case StyleSection::look:
        out.look = plain.look;
        out.lookScope = plain.lookScope;
        break;
    }
    return out;
}

Style Style::effective() const {
    Style out = *this;
    for (StyleSection section : disabled) out = out.resetting(section);
    out.disabled.clear();
    return out;
}

bool Style::isChanged(StyleSection section) const { return resetting(section) != *this; }

} // namespace ovik
