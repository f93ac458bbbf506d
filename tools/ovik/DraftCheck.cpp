#include "DraftCheck.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <set>

#include "OvikDrafts/DraftPaths.h"
#include "OvikDrafts/LocalizedDescription.h"
#include "OvikDrafts/PackageContainment.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/DraftDocument.h"
#include "OvikModel/draft/PicturePaths.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikModel/objects/ObjectWalks.h"
#include "OvikModel/scene/PropertyTable.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/FileDescriptor.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/media/MediaError.h"
#include "OvikPlatform/media/MediaProbe.h"
#include "OvikQuickLook/QuickLookDraft.h"
#include "OvikQuickLook/QuickLookPackage.h"

namespace ovik::DraftCheck {
namespace {

namespace fs = std::filesystem;

enum class FileKind { picture, movie, other };

// Opened without waiting, so a FIFO is refused rather than waited on, and judged on the
// descriptor that was opened.
void requirePlainFile(const fs::path& file) {
    const FileDescriptor descriptor = FileDescriptor::open(file, O_RDONLY | O_NONBLOCK);
    struct stat facts {};
    if (::fstat(descriptor.get(), &facts) != 0) throw PosixError::fromErrno(file);
    if (S_ISDIR(facts.st_mode)) throw PosixError(EISDIR, file);
    if (!S_ISREG(facts.st_mode)) throw PosixError(ENXIO, file);
}

std::set<PackagePath> movies(const Draft& draft) {
    std::set<PackagePath> out;
    for (const Media& media : draft.media)
        if (const auto* recording = std::get_if<MediaSource::recording>(&media.source.cases))
            for (const Segment& segment : recording->value.segments) out.insert(segment.movie);
    return out;
}

std::set<PackagePath> pictures(const Draft& draft) {
    std::set<PackagePath> out = picturePaths(draft);
    for (const Media& media : draft.media)
        if (const auto* shot = std::get_if<MediaSource::screenshot>(&media.source.cases)) out.insert(shot->value.image);
    return out;
}

std::string problem(std::string_view key, const std::string& path, const std::string& cause = {}) {
    return L10n::format(key, {path, cause});
}

// The file is held inside, a plain file, and read as far as its kind needs: a picture's header
// or a movie's streams.
std::optional<std::string> fileProblem(const DraftDocument& document, const PackagePath& path, FileKind kind) {
    try {
        const fs::path file = PackageContainment::resolve(document.packageURL, path);
        requirePlainFile(file);
        if (kind == FileKind::picture) MediaProbe::picture(file);
        if (kind == FileKind::movie) MediaProbe::movie(file);
    } catch (const MediaError&) {
        return problem(kind == FileKind::picture ? "cli.draft.notPicture" : "cli.draft.notMovie", path.relative);
    } catch (const std::exception& error) {
        return problem("cli.draft.unusableFile", path.relative, localizedDescription(error));
    }
    return std::nullopt;
}

std::vector<std::string> sortedNames(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (const std::string name = it->path().filename().string(); name.front() != '.') names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}

// Each entry of renders/ and of each key folder in it is held inside; a folder that leads
// outside is reported once and not listed. Below the key folders, folders (a kept sequence of
// pictures) are fine, and anything else must be a plain file.
void checkKeptFolder(const DraftDocument& document, const std::string& relative, int depth,
                     std::vector<std::string>& out) {
    try {
        const fs::path resolved = PackageContainment::resolve(document.packageURL, PackagePath{relative});
        std::error_code error;
        if (fs::is_directory(resolved, error)) {
            if (depth < 2)
                for (const std::string& name : sortedNames(resolved)) checkKeptFolder(document, relative + "/" + name, depth + 1, out);
            return;
        }
        if (depth == 2) requirePlainFile(resolved);
    } catch (const PackagePathError& error) {
        out.push_back(error.what());
    } catch (const std::exception& error) {
        out.push_back(problem("cli.draft.unusableFile", relative, localizedDescription(error)));
    }
}

std::string relativeTo(const fs::path& file, const fs::path& root) { return file.lexically_relative(root).string(); }

void checkKeptThumbnails(const DraftDocument& document, std::vector<std::string>& out) {
    const QuickLookPackage package{document.packageURL, document};
    for (std::int64_t size : QuickLookDraft::keptThumbnailPixels) {
        const auto file =
            package.render(thumbnailKey(document.draft, size), "png", RenderKey::thumbnailFileName(size));
        if (!file) continue;
        try {
            // Decoded as a host shows it: reduced to its rung, refused from the header when
            // far larger than a thumbnail of that size could show.
            PNGCodec::decode(readFile(*file), size);
        } catch (const Error&) {
            out.push_back(problem("cli.draft.badKeptRender", relativeTo(*file, document.packageURL)));
        }
    }
}

void checkRange(const PropertySpec& spec, const std::optional<JSONValue>& value, const std::string& place,
                std::vector<std::string>& out) {
    double number = 0;
    if (!value || !value->number(number)) return;
    if (number >= spec.range->first && number <= spec.range->second) return;
    out.push_back(L10n::format("cli.draft.outOfRange", {place, value->compact(), JSONValue(spec.range->first).compact(),
                                                        JSONValue(spec.range->second).compact()}));
}

bool hasRow(const ObjectAccess& access, const ObjectNode& node) {
    if (!access.leaves) return true;
    const Annotation* annotation = node.annotation();
    return annotation && access.leaves(*annotation);
}

} // namespace

std::vector<std::string> fileProblems(const DraftDocument& document) {
    const std::set<PackagePath> movieFiles = movies(document.draft), pictureFiles = pictures(document.draft);
    std::vector<std::string> out;
    for (const PackagePath& path : draftPaths(document.draft)) {
        const FileKind kind = movieFiles.count(path)     ? FileKind::movie
                              : pictureFiles.count(path) ? FileKind::picture
                                                         : FileKind::other;
        if (auto found = fileProblem(document, path, kind)) out.push_back(std::move(*found));
    }
    return out;
}

std::vector<std::string> keptRenderProblems(const DraftDocument& document) {
    std::vector<std::string> out;
    std::error_code error;
    if (fs::exists(fs::symlink_status(document.packageURL / "renders", error))) checkKeptFolder(document, "renders", 0, out);
    checkKeptThumbnails(document, out);
    return out;
}

std::vector<std::string> rangeProblems(const Draft& draft) {
    std::vector<std::string> out;
    for (const PropertyKey key : PropertyTable::allKeys()) {
        const PropertySpec& spec = key.spec();
        if (!spec.range) continue;
        if (spec.sectionAccess) checkRange(spec, spec.sectionAccess->read(draft), spec.name, out);
        if (spec.mediaAccess)
            for (const Media& media : draft.media)
                checkRange(spec, spec.mediaAccess->read(media), media.id.description() + "." + spec.name, out);
        if (spec.objectAccess)
            forEachNode(draft.objects, std::nullopt, [&](const ObjectNode& node, const ObjectLocation&) {
                if (hasRow(*spec.objectAccess, node))
                    checkRange(spec, spec.objectAccess->read(node), node.name + "." + spec.name, out);
            });
    }
    return out;
}

} // namespace ovik::DraftCheck
