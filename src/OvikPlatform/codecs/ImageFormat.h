#pragma once
// The kinds of picture file that can be read, told apart by their first bytes, never by the
// file's name.
#include <optional>
#include <string_view>

namespace ovik {

enum class ImageFormat { png, jpeg, heic, gif };

/// The format whose signature the bytes begin with, or none.
std::optional<ImageFormat> imageFormat(std::string_view bytes);

} // namespace ovik
