#include "OvikModel/draft/KeptStretch.h"

#include <algorithm>
#include <cmath>

#include "OvikModel/time/Speed.h"

namespace ovik {
namespace {

MediaDuration roundedQuotient(MediaDuration length, double rate) {
    return MediaDuration::rounded(double(length.microseconds) / rate);
}

MediaDuration clampedTo(MediaDuration value, MediaDuration lo, MediaDuration hi) {
    return std::min(std::max(value, lo), hi);
}

} // namespace

bool KeptStretch::isAudible() const {
    // The small term absorbs rounding of a rate that was set to the limit itself.
    return !isFreeze() && rate <= Speed::audibleLimit + 1e-9;
}

MediaDuration KeptStretch::outputLength(MediaDuration length, double rate) {
    if (rate == 1 || length.microseconds < 1) return length;
    return std::max(roundedQuotient(length, rate), MediaDuration{1});
}

MediaDuration KeptStretch::outputLength() const { return hold ? *hold : outputLength(length(), rate); }

MediaDuration KeptStretch::outputOffset(MediaDuration offset) const {
    if (isFreeze()) return {};
    if (rate == 1) return offset;
    const MediaDuration whole = outputLength();
    if (!reversed) return clampedTo(roundedQuotient(offset, rate), {}, whole);
    const MediaDuration L = length();
    const MediaDuration total = L.microseconds < 1 ? L : std::max(roundedQuotient(L, rate), MediaDuration{1});
    const MediaDuration fromEnd = std::min(whole, std::max(roundedQuotient(L - offset, rate), MediaDuration{}));
    return total - fromEnd;
}

MediaDuration KeptStretch::sourceOffset(MediaDuration offset) const {
    if (isFreeze()) return {};
    const MediaDuration L = length();
    const MediaDuration scaled = rate == 1 ? offset : MediaDuration::rounded(rate * double(offset.microseconds));
    if (!reversed) return rate == 1 ? offset : clampedTo(scaled, {}, L);
    return L - clampedTo(scaled, {}, L);
}

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

namespace ovik {

std::vector<SourceRange> playedRanges(const std::vector<KeptStretch>& stretches) {
    std::vector<SourceRange> out;
    for (const KeptStretch& stretch : stretches)
        if (!stretch.isFreeze()) out.push_back(stretch.range);
    return out;
}

std::vector<KeptStretch> freezes(const std::vector<KeptStretch>& stretches) {
    std::vector<KeptStretch> out;
    std::copy_if(stretches.begin(), stretches.end(), std::back_inserter(out),
                 [](const KeptStretch& s) { return s.isFreeze(); });
    return out;
}

std::vector<KeptStretch> joined(const std::vector<KeptStretch>& stretches, const std::vector<std::size_t>& indices) {
    std::vector<KeptStretch> out;
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        const KeptStretch& stretch = stretches[i];
        const bool marked = std::find(indices.begin(), indices.end(), i) != indices.end();
        KeptStretch* before = out.empty() ? nullptr : &out.back();
        const bool joins = marked && before && stretch.resumes && !stretch.isFreeze() && !before->isFreeze() &&
                           before->range.end == stretch.range.start && before->rate == stretch.rate &&
                           before->origin == stretch.origin;
        if (joins)
            before->range.end = stretch.range.end;
        else
            out.push_back(stretch);
    }
    return out;
}

} // namespace ovik
