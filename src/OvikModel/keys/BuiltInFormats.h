#pragma once
// The formats the engine exports, by id, with the file extension each writes; and the request
// a draft of each kind gets when a person hasn't chosen.
#include <string>

#include "OvikModel/keys/ExportRequest.h"
#include "OvikModel/keys/OutputKind.h"

namespace ovik::BuiltInFormats {

/// The extension of a built-in format, or the id's own text for a format we don't know.
std::string fileExtension(const ExportFormatID& format);

/// PNG at the original size for a screenshot; MP4 at 30 frames a second, original size, for
/// an animation or a recording.
ExportRequest defaultRequest(OutputKind kind);

} // namespace ovik::BuiltInFormats
