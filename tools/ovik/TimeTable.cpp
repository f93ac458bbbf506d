#include "TimeTable.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikModel/time/Speed.h"

namespace ovik::cli {
namespace {

using Row = std::vector<std::string>;

std::string range(const auto& r) { return r.description(); }
std::string micro(MediaDuration d) { return std::to_string(d.microseconds) + " µs"; }

// Output, source and speed of a piece; with `played`, the played span it shows after the output.
Row pieceRow(const TimeMap::Piece& piece, const TimeMap::PlayedSpan* played) {
    const KeptStretch& stretch = piece.stretch;
    Row row{range(piece.output)};
    if (played) row.push_back(std::to_string(played->from.microseconds) + " → " + std::to_string(played->to.microseconds));
    if (stretch.isFreeze()) {
        row.push_back(std::to_string(stretch.frame().microseconds));
        row.push_back(L10n::format("cli.time.table.freeze", {micro(*stretch.hold)}));
        return row;
    }
    std::string speed = Speed::text(stretch.rate);
    if (stretch.reversed) speed += " " + L10n::text("cli.time.table.reversed");
    row.push_back(range(stretch.range));
    row.push_back(speed);
    return row;
}

// Terminal columns of a text: wide (East Asian) characters take two.
std::size_t width(const std::string& text) {
    std::size_t columns = 0;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t code = length == 1 ? lead : lead & (0xFF >> (length + 1));
        for (std::size_t k = 1; k < length && i + k < text.size(); ++k) code = (code << 6) | (text[i + k] & 0x3F);
        const bool wide = (code >= 0x1100 && code <= 0x115F) || (code >= 0x2E80 && code <= 0xA4CF) ||
                          (code >= 0xAC00 && code <= 0xD7A3) || (code >= 0xF900 && code <= 0xFAFF) ||
                          (code >= 0xFE30 && code <= 0xFE4F) || (code >= 0xFF00 && code <= 0xFF60) ||
                          (code >= 0xFFE0 && code <= 0xFFE6);
        columns += wide ? 2 : 1;
        i += length;
    }
    return columns;
}

// Columns padded to their widest cell.
std::string rows(const std::vector<Row>& table) {
    std::vector<std::size_t> widths(table.front().size());
    for (const Row& row : table)
        for (std::size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], width(row[c]));
    std::string out;
    for (const Row& row : table) {
        std::string line = "  ";
        for (std::size_t c = 0; c < row.size(); ++c)
            line += row[c] + std::string(c + 1 < row.size() ? widths[c] - width(row[c]) + 3 : 0, ' ');
        out += line + "\n";
    }
    return out;
}

std::string speedCurve(const SectionSpeed& speed) {
    std::vector<std::string> parts;
    for (const SectionSpeed::Key& key : speed.keys)
        parts.push_back(L10n::format("cli.time.table.key", {micro(key.at), Speed::text(key.rate)}));
    for (const SectionSpeed::Hold& hold : speed.holds)
        parts.push_back(L10n::format("cli.time.table.hold", {micro(hold.at), micro(hold.duration)}));
    if (speed.reversed) parts.push_back(L10n::text("cli.time.table.reversed"));
    return "  " + L10n::format("cli.time.table.speed", {L10n::list(parts)}) + "\n";
}

std::string mediaKind(const Draft& draft, MediaID id) {
    for (const Media& media : draft.media)
        if (media.id == id) return std::string(media.source.caseName());
    return "?";
}

std::string entryText(const Draft& draft, const DraftTimeline::Entry& entry, std::size_t number) {
    std::string out = L10n::format("cli.time.table.section", {std::int64_t(number), entry.section.description(),
                                                              mediaKind(draft, entry.media), range(entry.output),
                                                              micro(entry.map.playedDuration())});
    if (entry.transitionIn) out += " " + L10n::format("cli.time.table.transition", {micro(entry.transitionIn->duration)});
    const auto& played = entry.map.played();
    std::vector<Row> table{{L10n::text("cli.time.table.output")}};
    if (played) table[0].push_back(L10n::text("cli.time.table.played"));
    table[0].push_back(L10n::text("cli.time.table.source"));
    table[0].push_back(L10n::text("cli.time.table.rate"));
    const auto& pieces = entry.map.pieces();
    for (std::size_t i = 0; i < pieces.size(); ++i) table.push_back(pieceRow(pieces[i], played ? &(*played)[i] : nullptr));
    out += "\n" + rows(table);
    for (const Section& section : draft.sections)
        if (section.id == entry.section && section.speed) out += speedCurve(*section.speed);
    return out;
}

} // namespace

std::string TimeTable::text(const Draft& draft, const DraftTimeline& timeline) {
    std::string out = L10n::format("cli.time.table.film",
                                   {micro(timeline.duration()), std::int64_t(timeline.entries().size())}) + "\n";
    for (std::size_t i = 0; i < timeline.entries().size(); ++i) out += entryText(draft, timeline.entries()[i], i + 1);
    return out;
}

} // namespace ovik::cli
