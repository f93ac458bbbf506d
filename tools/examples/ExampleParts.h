#pragma once
// What every sample package shares: fixed ids and date, so that each build writes the same
// bytes, the framed style of the packages that show one, and the way a package is written.
#include <cstdio>
#include <filesystem>

#include "OvikModel/Draft.h"

namespace ovik::examples {

/// 2026-01-15 10:30 UTC: the moment every sample draft was made.
inline constexpr Date exampleDate{790'165'800};

/// The id numbered `n` of the sample drafts: a fixed UUID, never a random one.
template <class ID>
ID fixedID(int n) {
    char text[40];
    std::snprintf(text, sizeof text, "0E5A11C0-0000-4000-8000-%012d", n);
    return ID{*UUID::parse(text)};
}

/// The gradient that ships under the text-table key `nameKey`.
Background shippedGradient(std::string_view nameKey);

/// A style that puts the capture on `background`, inset by `padding` points, with rounded
/// corners and a shadow of `shadow` strength (0 to 100).
Style framedStyle(Background background, double padding, double cornerRadius, double shadow);

/// Writes `draft.json` into a new package with an empty media folder.
void writePackage(const std::filesystem::path& package, const Draft& draft);

} // namespace ovik::examples
