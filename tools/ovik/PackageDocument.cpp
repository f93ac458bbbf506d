#include "PackageDocument.h"

#include "OvikDrafts/FileDraftStore.h"
#include "OvikDrafts/PackageContainment.h"
#include "OvikQuickLook/QuickLookPackage.h"

namespace ovik::cli {

DraftDocument packageDocument(const std::filesystem::path& package) {
    Draft draft = FileDraftStore::readDraft(package);
    const std::filesystem::path root = std::filesystem::weakly_canonical(package);
    for (const PackagePath& path : QuickLookPackage::paths(draft)) PackageContainment::resolve(root, path);
    return DraftDocument{std::move(draft), root};
}

} // namespace ovik::cli
