#include "OvikModel/time/TimeMap.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ovik {
namespace {

bool isWellFormed(const KeptStretch& stretch) {
    if (stretch.isFreeze()) return stretch.hold->microseconds >= 1 && stretch.range.start == stretch.range.end;
    return stretch.range.start < stretch.range.end && std::isfinite(stretch.rate) && stretch.rate > 0;
}

bool areValid(const std::vector<KeptStretch>& stretches) {
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        if (!isWellFormed(stretches[i])) return false;
        if (i > 0 && stretches[i].range.start < stretches[i - 1].range.end) return false;
    }
    return true;
}

bool holds(const KeptStretch& stretch, SourceTime time) {
    return stretch.isFreeze() ? stretch.frame() == time : stretch.range.contains(time);
}

// The source range a playing piece shows over the local output offsets [from, to).
std::optional<SourceRange> shownSource(const KeptStretch& stretch, MediaDuration from, MediaDuration to) {
    SourceRange range{stretch.range.start + stretch.sourceOffset(from), stretch.range.start + stretch.sourceOffset(to)};
    if (stretch.reversed) std::swap(range.start, range.end);
    if (range.isEmpty()) return std::nullopt;
    return range;
}

// The part of a piece under an output range, as local offsets; none when they don't meet.
std::optional<std::pair<MediaDuration, MediaDuration>> overlap(const TimeMap::Piece& piece, const OutputRange& range) {
    const auto common = piece.output.intersection(range);
    if (!common) return std::nullopt;
    return std::pair{common->start - piece.output.start, common->end - piece.output.start};
}

MediaDuration absolute(MediaDuration d) { return MediaDuration{std::abs(d.microseconds)}; }

} // namespace

TimeMap TimeMap::laid(const std::vector<KeptStretch>& stretches) {
    TimeMap map;
    OutputTime cursor;
    map.pieces_.reserve(stretches.size());
    for (const KeptStretch& stretch : stretches) {
        const OutputTime end = cursor + stretch.outputLength();
        map.pieces_.push_back({stretch, {cursor, end}});
        cursor = end;
    }
    map.outputDuration_ = map.playedDuration_ = cursor - OutputTime{};
    return map;
}

std::optional<TimeMap> TimeMap::make(const std::vector<KeptStretch>& stretches) {
    if (!areValid(stretches)) return std::nullopt;
    TimeMap map = laid(stretches);
    map.keptRanges_ = playedRanges(stretches);
    return map;
}

std::optional<TimeMap> TimeMap::make(const std::vector<SourceRange>& keptRanges) {
    std::vector<KeptStretch> stretches(keptRanges.size());
    for (std::size_t i = 0; i < keptRanges.size(); ++i) stretches[i].range = keptRanges[i];
    return make(stretches);
}

std::optional<TimeMap> TimeMap::make(const std::vector<KeptStretch>& stretches,
                                     const std::optional<SectionSpeed>& speed, bool framed) {
    auto base = make(stretches);
    if (!base || !speed || speed->isIdentity()) return base;
    return retimed(*base, *speed, framed);
}

namespace {

// Builds the stretches of a retimed map, one speed piece at a time.
struct Retiming {
    const TimeMap& base;
    std::vector<KeptStretch> stretches;
    std::vector<TimeMap::PlayedSpan> spans;

    void hold(const SectionSpeed::Piece& piece) {
        KeptStretch freeze = KeptStretch::freeze(base.source(OutputTime{piece.from.microseconds}), piece.output);
        stretches.push_back(freeze);
        spans.push_back({OutputTime{piece.from.microseconds}, OutputTime{piece.from.microseconds}});
    }

    void move(const SectionSpeed::Piece& piece) {
        const bool back = piece.to < piece.from;
        const OutputTime f{piece.from.microseconds};
        const OutputTime lo{std::min(piece.from, piece.to).microseconds}, hi{std::max(piece.from, piece.to).microseconds};
        const double factor = (hi - lo).seconds() / piece.output.seconds();
        const auto& pieces = base.pieces();
        for (std::size_t k = 0; k < pieces.size(); ++k) {
            const TimeMap::Piece& under = pieces[back ? pieces.size() - 1 - k : k];
            const OutputTime c0 = std::max(lo, under.output.start), c1 = std::min(under.output.end, hi);
            if (c0 >= c1) continue;
            const auto scaled = [&](OutputTime c) {
                return MediaDuration::rounded(double(absolute(c - f).microseconds) / factor);
            };
            const MediaDuration length = absolute(scaled(c1) - scaled(c0));
            if (length.microseconds < 1) continue;
            spans.push_back(back ? TimeMap::PlayedSpan{c1, c0} : TimeMap::PlayedSpan{c0, c1});
            stretches.push_back(part(under, c0, c1, hi, length, back));
        }
    }

    static KeptStretch part(const TimeMap::Piece& under, OutputTime c0, OutputTime c1, OutputTime hi,
                            MediaDuration length, bool back) {
        const KeptStretch& stretch = under.stretch;
        if (stretch.isFreeze()) return KeptStretch::freeze(stretch.frame(), length);
        const SourceTime start = stretch.range.start + stretch.sourceOffset(c0 - under.output.start);
        const SourceTime end =
            under.output.end > hi ? stretch.range.start + stretch.sourceOffset(c1 - under.output.start) : stretch.range.end;
        if (end <= start) return KeptStretch::freeze(start, length);
        KeptStretch out;
        out.range = {start, end};
        out.rate = double((end - start).microseconds) / double(length.microseconds);
        out.origin = stretch.origin;
        out.reversed = back;
        return out;
    }
};

} // namespace

std::optional<TimeMap> TimeMap::retimed(const TimeMap& base, const SectionSpeed& speed, bool framed) {
    Retiming retiming{base, {}, {}};
    for (const SectionSpeed::Piece& piece : speed.pieces(base.outputDuration(), framed)) {
        if (piece.isHold())
            retiming.hold(piece);
        else
            retiming.move(piece);
    }
    if (retiming.stretches.empty()) return std::nullopt;
    TimeMap map = laid(retiming.stretches);
    map.keptRanges_ = base.keptRanges_;
    map.played_ = std::move(retiming.spans);
    map.playedDuration_ = base.outputDuration_;
    return map;
}

std::vector<KeptStretch> TimeMap::stretches() const {
    std::vector<KeptStretch> out;
    out.reserve(pieces_.size());
    for (const Piece& piece : pieces_) out.push_back(piece.stretch);
    return out;
}

bool TimeMap::isRetimed() const {
    return played_ || std::any_of(pieces_.begin(), pieces_.end(), [](const Piece& p) {
               return p.stretch.isFreeze() || p.stretch.rate != 1;
           });
}

std::optional<std::size_t> TimeMap::pieceIndex(OutputTime time) const {
    if (pieces_.empty()) return std::nullopt;
    if (time.microseconds < 0) return 0;
    const auto found = std::upper_bound(pieces_.begin(), pieces_.end(), time,
                                        [](OutputTime t, const Piece& piece) { return t < piece.output.end; });
    if (found == pieces_.end()) return std::nullopt;
    return std::size_t(found - pieces_.begin());
}

SourceTime TimeMap::source(OutputTime time) const {
    if (pieces_.empty()) return {};
    if (time.microseconds < 1) return pieces_.front().stretch.range.start;
    const auto index = pieceIndex(time);
    if (!index) return pieces_.back().stretch.range.end;
    const Piece& piece = pieces_[*index];
    return piece.stretch.range.start + piece.stretch.sourceOffset(time - piece.output.start);
}

std::optional<OutputTime> TimeMap::output(SourceTime time) const {
    for (const Piece& piece : pieces_) {
        if (!holds(piece.stretch, time)) continue;
        if (piece.stretch.isFreeze()) return piece.output.start;
        return piece.output.start + piece.stretch.outputOffset(time - piece.stretch.range.start);
    }
    if (!pieces_.empty() && !pieces_.back().stretch.isFreeze() && time == pieces_.back().stretch.range.end)
        return OutputTime{} + outputDuration_;
    return std::nullopt;
}

OutputTime TimeMap::outputOrCut(SourceTime time) const {
    for (const Piece& piece : pieces_)
        if (!piece.stretch.isFreeze() && piece.stretch.range.contains(time))
            return piece.output.start + piece.stretch.outputOffset(time - piece.stretch.range.start);
    for (const Piece& piece : pieces_)
        if (piece.stretch.range.start > time || (piece.stretch.isFreeze() && piece.stretch.frame() == time))
            return piece.output.start;
    return OutputTime{} + outputDuration_;
}

std::optional<OutputTime> TimeMap::playedOutput(SourceTime time) const {
    std::optional<OutputTime> atEnd;
    for (const Piece& piece : pieces_) {
        if (piece.stretch.isFreeze()) continue;
        if (piece.stretch.range.contains(time))
            return piece.output.start + piece.stretch.outputOffset(time - piece.stretch.range.start);
        if (piece.stretch.range.end == time) atEnd = piece.output.end;
    }
    return atEnd;
}

OutputTime TimeMap::played(OutputTime time) const {
    if (!played_ || played_->empty()) return time;
    if (time.microseconds < 1) return played_->front().from;
    const auto index = pieceIndex(time);
    if (!index) return played_->back().to;
    const Piece& piece = pieces_[*index];
    const PlayedSpan& span = (*played_)[*index];
    const double n = double(piece.output.duration().microseconds);
    if (n < 1) return span.from;
    const double along = double((time - piece.output.start).microseconds) / n;
    return span.from + MediaDuration::rounded(along * double((span.to - span.from).microseconds));
}

double TimeMap::playedRate(OutputTime time) const {
    if (!played_) return 1.0;
    const auto index = pieceIndex(time);
    if (!index) return 1.0;
    const double n = double(pieces_[*index].output.duration().microseconds);
    if (n <= 0) return 0.0;
    const PlayedSpan& span = (*played_)[*index];
    return double((span.to - span.from).microseconds) / n;
}

OutputTime TimeMap::firstOutput(OutputTime playing) const {
    if (!played_ || played_->empty()) return playing;
    for (std::size_t i = 0; i < played_->size() && i < pieces_.size(); ++i) {
        const PlayedSpan& span = (*played_)[i];
        if (playing < std::min(span.from, span.to) || playing > std::max(span.from, span.to)) continue;
        const OutputRange& output = pieces_[i].output;
        if (span.from == span.to) return output.start;
        const double along = double((playing - span.from).microseconds) / double((span.to - span.from).microseconds);
        return output.start + MediaDuration::rounded(along * double(output.duration().microseconds));
    }
    const PlayedSpan& first = played_->front();
    return playing < std::min(first.from, first.to) ? OutputTime{} : OutputTime{} + outputDuration_;
}

std::vector<OutputRange> TimeMap::outputRanges(const SourceRange& range) const {
    std::vector<OutputRange> out;
    const auto add = [&out](OutputRange part) {
        if (part.isEmpty()) return;
        if (!out.empty() && out.back().end == part.start)
            out.back().end = part.end;
        else
            out.push_back(part);
    };
    for (const Piece& piece : pieces_) {
        const KeptStretch& stretch = piece.stretch;
        if (stretch.isFreeze()) {
            if (range.start <= stretch.frame() && stretch.frame() < range.end) add(piece.output);
            continue;
        }
        const auto common = stretch.range.intersection(range);
        if (!common) continue;
        OutputRange part{piece.output.start + stretch.outputOffset(common->start - stretch.range.start),
                         piece.output.start + stretch.outputOffset(common->end - stretch.range.start)};
        if (stretch.reversed) std::swap(part.start, part.end);
        add(part);
    }
    return out;
}

std::vector<SourceRange> TimeMap::sourceRanges(const OutputRange& range) const {
    std::vector<SourceRange> out;
    for (const Piece& piece : pieces_) {
        if (piece.stretch.isFreeze()) continue;
        const auto local = overlap(piece, range);
        if (!local) continue;
        if (const auto shown = shownSource(piece.stretch, local->first, local->second)) out.push_back(*shown);
    }
    return out;
}

std::vector<KeptStretch> TimeMap::stretches(const OutputRange& range) const {
    std::vector<KeptStretch> out;
    for (const Piece& piece : pieces_) {
        const auto local = overlap(piece, range);
        if (!local) continue;
        if (piece.stretch.isFreeze()) {
            out.push_back(KeptStretch::freeze(piece.stretch.frame(), local->second - local->first));
            continue;
        }
        const auto shown = shownSource(piece.stretch, local->first, local->second);
        if (!shown) continue;
        KeptStretch part = piece.stretch;
        part.range = *shown;
        out.push_back(part);
    }
    return out;
}

} // namespace ovik
