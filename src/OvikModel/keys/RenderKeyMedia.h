#pragma once
// The part of a render payload that says what is shown: the media as stored, the sections
// with every kept stretch's origin set to `manual` (whether a person or the program chose a
// speed doesn't change the picture), the still layout and the animation flag. All four keys
// are always written.
#include "OvikModel/draft/Media.h"
#include "OvikModel/draft/Section.h"
#include "OvikModel/draft/StillLayout.h"
#include "OvikPlatform/CowList.h"

namespace ovik {

struct RenderKeyMedia {
    CowList<Media> media;
    std::vector<Section> sections;
    StillLayout layout;
    bool isAnimation = false;

    bool operator==(const RenderKeyMedia&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("media", &RenderKeyMedia::media), required("sections", &RenderKeyMedia::sections),
                          required("layout", &RenderKeyMedia::layout),
                          required("isAnimation", &RenderKeyMedia::isAnimation)};
    }
};

} // namespace ovik
