#pragma once
// What `ovik draft check` finds wrong in an opened package, each problem a finished sentence for
// a person. Reading a draft accepts all of these; only a check reports them.
#include <string>
#include <vector>

namespace ovik {
struct Draft;
struct DraftDocument;
} // namespace ovik

namespace ovik::DraftCheck {

/// Files the draft names that are missing or not plain files, pictures whose header doesn't
/// decode and movies that don't open, in the order the draft names them.
std::vector<std::string> fileProblems(const DraftDocument& document);

/// Kept renders that lead outside the package or aren't plain files, and kept thumbnails of the
/// draft's own keys that aren't whole PNGs.
std::vector<std::string> keptRenderProblems(const DraftDocument& document);

/// Values stored outside their property row's range, on the draft, its media and its objects.
std::vector<std::string> rangeProblems(const Draft& draft);

} // namespace ovik::DraftCheck
