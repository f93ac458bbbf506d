#include "OvikModel/objects/Annotation.h"

namespace ovik {
namespace {

// `Annotation::kind()` is the index of the case, so the cases must keep the order of the kinds.
template <class... Cases>
constexpr bool casesFollowKinds(std::variant<Cases...>*) {
    std::size_t index = 0;
    return ((Cases::name == caseName(AnnotationKind(index++))) && ...);
}
static_assert(casesFollowKinds(static_cast<decltype(Annotation::cases)*>(nullptr)));

} // namespace

} // namespace ovik
