#include "OvikModel/draft/PicturePaths.h"

#include "OvikModel/Draft.h"
#include "OvikModel/objects/ObjectWalks.h"

namespace ovik {

std::set<PackagePath> picturePaths(const Draft& draft) {
    std::set<PackagePath> paths = objectPaths(draft.objects);
    if (auto picture = draft.style.background.picture()) paths.insert(std::move(*picture));
    return paths;
}

} // namespace ovik
