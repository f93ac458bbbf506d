#include "OvikModel/draft/KeptStretch.h"

#include <algorithm>

namespace ovik {

void insertFreeze(std::vector<KeptStretch>& stretches, const KeptStretch& freeze) {
    const SourceTime frame = freeze.frame();
    const auto after = std::find_if(stretches.begin(), stretches.end(), [frame](const KeptStretch& s) {
        return frame < (s.isFreeze() ? s.range.start : s.range.end);
    });
    if (after == stretches.end()) {
        stretches.push_back(freeze);
        return;
    }
    if (after->isFreeze() || frame <= after->range.start) {
        stretches.insert(after, freeze);
        return;
    }
    // The frame falls inside a playing stretch: the right half starts at the frame and
    // joins the freeze without a cut.
    KeptStretch right = *after;
    right.range.start = frame;
    right.resumes = true;
    after->range.end = frame;
    const auto at = stretches.insert(std::next(after), freeze);
    stretches.insert(std::next(at), right);
}

} // namespace ovik
