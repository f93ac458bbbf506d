#include "OvikModel/draft/Section.h"

#include <algorithm>
#include <set>
#include <string>

namespace ovik {
namespace {

// The section's own fields; the length's keys are added beside them.
struct StoredSection : Section {
    static constexpr auto jsonFields();
};

template <class Member>
constexpr Member StoredSection::*field(Member Section::*member) {
    return member;
}

constexpr auto StoredSection::jsonFields() {
    return std::tuple{required("id", field(&Section::id)),
                      required("media", field(&Section::media)),
                      optional("transitionIn", field(&Section::transitionIn)),
                      defaulted("lens", field(&Section::lens)),
                      optional("space", field(&Section::space)),
                      optional("speed", field(&Section::speed)),
                      optional("split", field(&Section::split)),
                      optional("look", field(&Section::look)),
                      defaulted("lookActions", field(&Section::lookActions))};
}

constexpr std::string_view stillDurationKey = "stillDuration";

struct StillForm {
    MediaDuration stillDuration;
    static constexpr auto jsonFields() { return std::tuple{required(stillDurationKey, &StillForm::stillDuration)}; }
};

struct FreezeRecord {
    SourceTime at;
    MediaDuration duration;
    static constexpr auto jsonFields() {
        return std::tuple{required("at", &FreezeRecord::at), required("duration", &FreezeRecord::duration)};
    }
};

// The kept stretches as parallel lists: indices count the playing stretches only.
struct KeptForm {
    std::vector<SourceRange> keptRanges;
    std::optional<std::vector<double>> rates;
    std::optional<std::vector<std::int64_t>> autoRates;
    std::optional<std::vector<std::int64_t>> resumes;
    std::optional<std::vector<FreezeRecord>> freezes;
    static constexpr auto jsonFields() {
        return std::tuple{required("keptRanges", &KeptForm::keptRanges), optional("rates", &KeptForm::rates),
                          optional("autoRates", &KeptForm::autoRates), optional("resumes", &KeptForm::resumes),
                          optional("freezes", &KeptForm::freezes)};
    }
};

template <class T>
std::optional<std::vector<T>> unlessEmpty(std::vector<T> list) {
    if (list.empty()) return std::nullopt;
    return list;
}

KeptForm keptForm(const std::vector<KeptStretch>& stretches) {
    KeptForm form;
    std::vector<double> rates;
    std::vector<std::int64_t> autoRates, resumes;
    std::vector<FreezeRecord> freezes;
    for (const KeptStretch& stretch : stretches) {
        if (stretch.hold) {
            freezes.push_back({stretch.frame(), *stretch.hold});
            continue;
        }
        const auto index = std::int64_t(form.keptRanges.size());
        form.keptRanges.push_back(stretch.range);
        rates.push_back(stretch.rate);
        if (stretch.origin == SpeedOrigin::auto_) autoRates.push_back(index);
        if (stretch.resumes) resumes.push_back(index);
    }
    if (std::any_of(rates.begin(), rates.end(), [](double rate) { return rate != 1.0; })) form.rates = rates;
    form.autoRates = unlessEmpty(std::move(autoRates));
    form.resumes = unlessEmpty(std::move(resumes));
    form.freezes = unlessEmpty(std::move(freezes));
    return form;
}

std::vector<KeptStretch> stretches(const KeptForm& form, const CodingPath& path) {
    const std::size_t count = form.keptRanges.size();
    if (form.rates && form.rates->size() != count)
        throw DecodingError::dataCorrupted(path.appending("rates"), std::to_string(form.rates->size()) + " rates for " +
                                                                         std::to_string(count) + " kept ranges");
    const auto indices = [](const std::optional<std::vector<std::int64_t>>& list) {
        return list ? std::set<std::int64_t>(list->begin(), list->end()) : std::set<std::int64_t>();
    };
    const std::set<std::int64_t> autoRates = indices(form.autoRates), resumes = indices(form.resumes);
    std::vector<KeptStretch> out;
    out.reserve(count + (form.freezes ? form.freezes->size() : 0));
    for (std::size_t i = 0; i < count; ++i) {
        const auto index = std::int64_t(i);
        KeptStretch& stretch = out.emplace_back();
        stretch.range = form.keptRanges[i];
        stretch.rate = form.rates ? (*form.rates)[i] : 1.0;
        stretch.origin = autoRates.count(index) ? SpeedOrigin::auto_ : SpeedOrigin::manual;
        stretch.resumes = resumes.count(index) > 0;
    }
    if (form.freezes)
        for (const FreezeRecord& freeze : *form.freezes)
            insertFreeze(out, KeptStretch::freeze(freeze.at, freeze.duration));
    return out;
}

JSONValue lengthForm(const Section::Length& length) {
    if (const auto* still = std::get_if<Section::Length::still>(&length.cases))
        return encodeJSON(StillForm{still->value});
    return encodeJSON(keptForm(length.as<Section::Length::kept>().value));
}

// A present "stillDuration" makes a still, and the kept lists are then not read at all.
Section::Length decodeLength(JSONNode node, const CodingPath& path) {
    JSONNode still = node;
    if (node.find(stillDurationKey, still) && !still.isNull())
        return Section::Length::makeStill(decodeJSON<StillForm>(node, path).stillDuration);
    return Section::Length::makeKept(stretches(decodeJSON<KeptForm>(node, path), path));
}

} // namespace

std::vector<KeptStretch> Section::Length::stretches() const {
    if (const auto* still = std::get_if<Length::still>(&cases)) {
        KeptStretch whole;
        whole.range = {SourceTime{}, SourceTime{} + still->value};
        return {whole};
    }
    return as<kept>().value;
}

JSONValue JSONCoding<Section>::encode(const Section& section) {
    StoredSection stored{section};
    stored.speed = normalized(section.speed);
    JSONValue out = encodeJSON(stored);
    JSONValue length = lengthForm(section.length);
    out.object()->merge(*length.object());
    return out;
}

Section JSONCoding<Section>::decode(JSONNode node, const CodingPath& path) {
    Section section = decodeJSON<StoredSection>(node, path);
    section.length = decodeLength(node, path);
    section.speed = normalized(std::move(section.speed));
    return section;
}

} // namespace ovik
