#include "MediaExamples.h"

#include <string>

#include "ExampleParts.h"
#include "OvikDrafts/DraftPackage.h"
#include "OvikModel/draft/ImportedFile.h"
#include "OvikPlatform/crypto/SHA256.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/media/MediaProbe.h"

namespace fs = std::filesystem;

namespace ovik::examples {
namespace {

// Where the recorder writes the first segment of a recording.
PackagePath firstSegmentPath() {
    return PackagePath{std::string(DraftPackage::mediaFolder) + "/segment-001.mov"};
}

// The file's bytes named by their digest, as an import keeps them.
PackagePath importedPath(const ImportedFile& file, const fs::path& source) {
    return PackagePath{std::string(ImportedFile::folder) + "/" + file.sha256 + source.extension().string()};
}

ImportedFile importedFile(const fs::path& source) {
    const std::string bytes = readFile(source);
    return ImportedFile{source.filename().string(), hexString(SHA256::hash(bytes)), 0};
}

// The whole display was recorded at one pixel a point.
Recording recordingOf(const MediaProbe::Movie& movie) {
    Segment segment;
    segment.movie = firstSegmentPath();
    segment.tracks = {TrackRef{TrackRole::screen, movie.videoTrackID, MediaDuration{}}};
    segment.duration = MediaDuration::fromSeconds(movie.duration.seconds());
    Recording recording;
    recording.segments = {segment};
    recording.pixelSize = PixelSize{movie.width, movie.height};
    recording.frameRate = movie.frameRate;
    recording.area = CaptureArea{1, CGRect{{0, 0}, {double(movie.width), double(movie.height)}}, 1, std::nullopt};
    recording.endReason = RecordingEndReason{{}, RecordingEndReason::user{}};
    return recording;
}

// One media and one section that shows it: the frame of every sample draft of a single source.
Draft singleMediaDraft(int firstID, std::string name, MediaSource source, Section::Length length) {
    Draft draft;
    draft.id = fixedID<DraftID>(firstID);
    draft.name = std::move(name);
    draft.createdAt = exampleDate;
    Media media;
    media.id = fixedID<MediaID>(firstID + 1);
    media.source = std::move(source);
    draft.media = CowList<Media>{media};
    Section section;
    section.id = fixedID<SectionID>(firstID + 2);
    section.media = media.id;
    section.length = std::move(length);
    draft.sections = CowList<Section>{section};
    return draft;
}

Draft recordingDraft(const MediaProbe::Movie& movie) {
    const Recording recording = recordingOf(movie);
    KeptStretch whole;
    whole.range = SourceRange::startingAt(SourceTime{}, recording.segments[0].duration);
    Draft draft = singleMediaDraft(30, "2026-01-15 录屏 10.30", MediaSource::makeRecording(recording),
                                   Section::Length::makeKept({whole}));
    draft.style = framedStyle(shippedGradient("model.background.sunset"), 64, 20, 60);
    return draft;
}

Draft photoDraft(const Screenshot& photo) {
    Draft draft = singleMediaDraft(50, "2026-01-15 截图 10.30", MediaSource::makeScreenshot(photo),
                                   Section::Length::makeStill(Screenshot::defaultAnimationLength));
    draft.style = framedStyle(shippedGradient("model.background.flame"), 80, 28, 80);
    return draft;
}

} // namespace

void writeRecordingPackage(const fs::path& package, const fs::path& movie) {
    writePackage(package, recordingDraft(MediaProbe::movie(movie)));
    fs::copy_file(movie, package / firstSegmentPath().relative);
}

void writePhotoPackage(const fs::path& package, const fs::path& photo) {
    const MediaProbe::Picture picture = MediaProbe::picture(photo);
    const ImportedFile imported = importedFile(photo);
    const Screenshot still{importedPath(imported, photo), PixelSize{picture.width, picture.height},
                           double(picture.scale), "sRGB", imported, std::nullopt};
    writePackage(package, photoDraft(still));
    fs::copy_file(photo, package / still.image.relative);
}

} // namespace ovik::examples
