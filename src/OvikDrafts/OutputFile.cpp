#include "OvikDrafts/OutputFile.h"

#include "OvikDrafts/LocalizedDescription.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/Error.h"
#include "OvikPlatform/files/AtomicFile.h"
#include "OvikPlatform/files/PosixError.h"

namespace ovik {

void writeOutputFile(std::string_view data, const std::filesystem::path& path) {
    try {
        AtomicFile::write(data, path);
    } catch (const PosixError& error) {
        throw Error(L10n::format("drafts.output.cannotWrite", {path.string(), localizedDescription(error)}));
    }
}

} // namespace ovik
