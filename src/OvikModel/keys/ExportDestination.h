#pragma once
// Where an export lands besides its file: a folder, or the photo library.
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class ExportDestination { folder, photos };

constexpr auto enumCases(ExportDestination*) {
    return EnumCases<ExportDestination, 2>{
        "ExportDestination", {{ExportDestination::folder, "folder"}, {ExportDestination::photos, "photos"}}};
}

} // namespace ovik
