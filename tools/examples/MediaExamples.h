#pragma once
// Sample packages around media files that ffmpeg made during the build: a screen recording of
// one movie segment, and a photo imported as a JPEG. The drafts are filled from what the files
// themselves say (size, rate, length, content digest), so they can't drift from the media.
#include <filesystem>

namespace ovik::examples {

/// A recording draft of one segment, `movie` copied to where the recorder puts its first
/// segment; one section keeps all of it, framed on a gradient.
void writeRecordingPackage(const std::filesystem::path& package, const std::filesystem::path& movie);

/// A still draft of the JPEG `photo`, imported into the package under its digest.
void writePhotoPackage(const std::filesystem::path& package, const std::filesystem::path& photo);

} // namespace ovik::examples
