#include <gtest/gtest.h>

#include "OvikModel/animation/ActionCurve.h"
#include "OvikModel/animation/ActionMode.h"
#include "OvikModel/animation/RevealShape.h"
#include "OvikModel/objects/Split.h"
#include "OvikModel/values/Timebase.h"

namespace ovik {
namespace {

template <class T>
T readsAndWritesBack(std::string_view json) {
    const T value = decodeJSON<T>(json);
    EXPECT_EQ(encodeJSON(value).compact(), json);
    return value;
}

// A case whose payload is one value stores that value under the case's key, not an object.
TEST(OneValuePayload, IsTheValueItselfUnderTheCaseKey) {
    EXPECT_EQ(readsAndWritesBack<ActionCurve>(R"({"steps":4})").as<ActionCurve::steps>().count, 4);
    EXPECT_EQ(readsAndWritesBack<ActionMode>(R"({"continuous":{"number":2}})").as<ActionMode::continuous>().rate,
              ActionValue::makeNumber(2));
    EXPECT_EQ(readsAndWritesBack<ActionMode>(R"({"alongPath":{"anchors":[{"point":[0,0]},{"point":[4,3]}]}})")
                  .as<ActionMode::alongPath>()
                  .path.anchors.size(),
              2u);
    EXPECT_EQ(readsAndWritesBack<RevealShape>(R"({"wipe":90})").as<RevealShape::wipe>().angle, 90);
    EXPECT_EQ(readsAndWritesBack<Timebase>(R"({"recording":[{"end":5,"start":0}]})").duration(), MediaDuration{5});
    // The random order keeps the object that names its seed.
    EXPECT_EQ(readsAndWritesBack<SplitOrder>(R"({"random":{"seed":42}})").as<SplitOrder::random>().seed, 42u);
}

TEST(OneValuePayload, TheNamedFormIsRefused) {
    EXPECT_THROW((void)decodeJSON<ActionCurve>(std::string_view(R"({"steps":{"count":4}})")), DecodingError);
    EXPECT_THROW((void)decodeJSON<RevealShape>(std::string_view(R"({"wipe":{"angle":90}})")), DecodingError);
    EXPECT_THROW((void)decodeJSON<ActionMode>(std::string_view(R"({"continuous":{"rate":{"number":2}}})")),
                 DecodingError);
}

} // namespace
} // namespace ovik
