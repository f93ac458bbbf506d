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
    const std::pair<Large, const char*> cases[] = {
        {Large{"a", std::nullopt, std::nullopt}, R"({"name":"a"})"},
        {Large{"b", PixelSize{4, 3}, std::nullopt}, R"({"name":"b","size":{"height":3,"width":4}})"},
        {Large{"c", std::nullopt, std::vector<double>{}}, R"({"name":"c","weights":[]})"},
    };
    for (const auto& [record, json] : cases) {
        EXPECT_EQ(JSONWriter::write(encodeJSON(record)), json);
        EXPECT_EQ(decodeJSON<Large>(std::string_view(json)), record) << json;
    }
    EXPECT_FALSE(decodeJSON<Large>(std::string_view(R"({"name":"n","size":null})")).size.has_value());
    EXPECT_THROW((void)decodeJSON<Large>(std::string_view(R"({"name":"n","size":{"width":1}})")), DecodingError);
}

TEST(HeldIfSet, EqualityComparesTheValueAndSettingLeavesCopiesAlone) {
    HeldIfSet<PixelSize> held = PixelSize{1, 2};
    const HeldIfSet<PixelSize> copy = held;
    EXPECT_EQ(copy, HeldIfSet<PixelSize>(PixelSize{1, 2})); // a box of its own
    EXPECT_NE(copy, HeldIfSet<PixelSize>());
    held = PixelSize{2, 2};
    EXPECT_EQ(*copy, (PixelSize{1, 2}));
    EXPECT_EQ(held->width, 2);
    EXPECT_EQ(std::hash<HeldIfSet<int>>()(HeldIfSet<int>()), std::hash<std::optional<int>>()(std::nullopt));
}

} // namespace
} // namespace ovik
