#include "OvikModel/style/StyleOption.h"

#include <algorithm>
#include <iterator>

#include "OvikL10n/L10n.h"

namespace ovik {
namespace {

// The options of a kind are the stored fields it has.
std::set<StyleOption> options(AnnotationKind kind) {
    using enum StyleOption;
    switch (kind) {
    case AnnotationKind::rectangle:
    case AnnotationKind::ellipse: return {pattern, fill, corner, shadow, halo};
    case AnnotationKind::arrow:
    case AnnotationKind::line: return {pattern, body, heads, shadow, halo};
    case AnnotationKind::pen: return {pattern, shadow, halo};
    case AnnotationKind::path: return {pattern, fill, shadow, halo};
    case AnnotationKind::magnifier: return {shadow};
    default: return {};
    }
}

} // namespace

std::set<StyleOption> shared(const std::vector<AnnotationKind>& kinds) {
    if (kinds.empty()) return {};
    std::set<StyleOption> out = options(kinds.front());
    for (AnnotationKind kind : kinds) {
        const std::set<StyleOption> own = options(kind);
        std::set<StyleOption> both;
        std::set_intersection(out.begin(), out.end(), own.begin(), own.end(), std::inserter(both, both.end()));
        out = std::move(both);
    }
    return out;
}

std::string label(StyleOption option) {
    switch (option) {
    case StyleOption::pattern: return L10n::text("model.style.linePattern");
    case StyleOption::body:
    case StyleOption::heads: return L10n::text("model.style.endpoints");
    case StyleOption::fill: return L10n::text("model.style.fill");
    case StyleOption::corner: return L10n::text("model.style.cornerRadius");
    case StyleOption::shadow: return L10n::text("model.style.shadow");
    case StyleOption::halo: return L10n::text("model.style.halo");
    }
    return {};
}

} // namespace ovik
