#include <gtest/gtest.h>

#include "OvikModel/values/HeldIfSet.h"
#include "OvikModel/values/PixelSize.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

struct Large {
    std::string name;
    HeldIfSet<PixelSize> size;
    HeldIfSet<std::vector<double>> weights;
    bool operator==(const Large&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("name", &Large::name), optional("size", &Large::size),
                          optional("weights", &Large::weights)};
    }
};

TEST(HeldIfSet, AsAnOptionalFieldItsKeyIsLeftOutWhenEmpty) {
    struct Case {
        Large record;
        const char* json;
    };
    const Case cases[] = {
        {Large{"a", std::nullopt, std::nullopt}, R"({"name":"a"})"},
        {Large{"b", PixelSize{4, 3}, std::nullopt}, R"({"name":"b","size":{"height":3,"width":4}})"},
        {Large{"c", std::nullopt, std::vector<double>{}}, R"({"name":"c","weights":[]})"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(JSONWriter::write(encodeJSON(c.record)), c.json);
        EXPECT_EQ(decodeJSON<Large>(std::string_view(c.json)), c.record) << c.json;
    }
    EXPECT_FALSE(decodeJSON<Large>(std::string_view(R"({"name":"n","size":null})")).size.has_value());
    EXPECT_THROW((void)decodeJSON<Large>(std::string_view(R"({"name":"n","size":{"width":1}})")), DecodingError);
}

TEST(HeldIfSet, EqualityComparesTheWrappedValue) {
    const HeldIfSet<PixelSize> a = PixelSize{1, 2};
    const HeldIfSet<PixelSize> b = PixelSize{1, 2}; // a box of its own
    const HeldIfSet<PixelSize> empty;
    EXPECT_EQ(a, b);
    EXPECT_NE(a, empty);
    EXPECT_NE(empty, a);
    EXPECT_EQ(empty, HeldIfSet<PixelSize>(std::nullopt));
    EXPECT_NE(a, HeldIfSet<PixelSize>(PixelSize{2, 1}));
    EXPECT_EQ(std::hash<HeldIfSet<int>>()(HeldIfSet<int>(5)), std::hash<HeldIfSet<int>>()(HeldIfSet<int>(5)));
    EXPECT_EQ(std::hash<HeldIfSet<int>>()(HeldIfSet<int>()), std::hash<std::optional<int>>()(std::nullopt));
}

TEST(HeldIfSet, SettingMakesANewBoxAndLeavesCopiesAlone) {
    HeldIfSet<PixelSize> held = PixelSize{1, 1};
    const HeldIfSet<PixelSize> copy = held;
    const PixelSize* before = &*held;
    held = PixelSize{2, 2};
    EXPECT_NE(&*held, before);
    EXPECT_EQ(*copy, (PixelSize{1, 1}));
    EXPECT_EQ(held->width, 2);
    held = std::nullopt;
    EXPECT_FALSE(held.has_value());
    EXPECT_EQ(copy.optional(), std::optional<PixelSize>(PixelSize{1, 1}));
}

} // namespace
} // namespace ovik
