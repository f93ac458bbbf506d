#include <gtest/gtest.h>

#include "OvikCompositor/BakedImageCache.h"
#include "OvikCompositor/MemoTable.h"
#include "OvikCompositor/RenderError.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/image/ImageColor.h"

namespace ovik {
namespace {

using Cache = BakedImageCache<int>;

std::function<std::optional<Cache::Baked>()> bake(std::int64_t bytes, int* calls = nullptr) {
    return [bytes, calls]() -> std::optional<Cache::Baked> {
        if (calls) ++*calls;
        return Cache::Baked{Image::fromColor(ImageColor{1, 0, 0, 1}), bytes};
    };
}

TEST(BakedImageCache, KeepsWithinItsBudgetLeastRecentlyUsedFirst) {
    Cache cache(100);
    int calls = 0;
    cache.value(1, bake(40, &calls));
    cache.value(2, bake(40, &calls));
    cache.value(1, bake(40, &calls)); // a hit: 1 is now the newer
    EXPECT_EQ(calls, 2);
    cache.value(3, bake(40, &calls)); // over budget: 2 goes
    EXPECT_EQ(cache.count(), 2u);
    EXPECT_EQ(cache.bytes(), 80);
    cache.value(1, bake(40, &calls));
    EXPECT_EQ(calls, 3);
    cache.value(2, bake(40, &calls));
    EXPECT_EQ(calls, 4);
    EXPECT_EQ(cache.bakes(), 4);
}

TEST(BakedImageCache, APictureOverTheWholeBudgetStaysAlone) {
    Cache cache(100);
    cache.value(1, bake(10));
    cache.value(2, bake(500));
    EXPECT_EQ(cache.count(), 1u);
    EXPECT_EQ(cache.bytes(), 500);
}

TEST(BakedImageCache, AFailedBakeKeepsNothing) {
    Cache cache(100);
    EXPECT_FALSE(cache.value(1, [] { return std::optional<Cache::Baked>(); }));
    EXPECT_EQ(cache.count(), 0u);
    EXPECT_EQ(cache.bakes(), 0);
}

TEST(MemoTable, EmptiesWholeWhenFull) {
    MemoTable<int, int> table(2);
    EXPECT_EQ(table.value(1, [] { return 10; }), 10);
    EXPECT_EQ(table.value(1, [] { return 11; }), 10);
    table.value(2, [] { return 20; });
    table.value(3, [] { return 30; });
    EXPECT_EQ(table.count(), 1u);
    EXPECT_FALSE(table.value(1));
    EXPECT_EQ(table.value(3), 30);
}

TEST(RenderError, MessagesAndRetries) {
    const L10n::LanguageOverride english("en");
    EXPECT_STREQ(RenderFailure(RenderError::unsupported{ExportFormatID{"gif"}, DraftKind::screenshot}).what(),
                 "A screenshot has no picture in the gif format.");
    EXPECT_STREQ(RenderFailure(RenderError::diskSpaceLow{150'000'000, 1}).what(),
                 "There isn't enough room on the disk: 150 MB needed, 1 MB free.");
    EXPECT_TRUE((RenderError{{}, RenderError::cancelled{}}.isTransient()));
    EXPECT_FALSE((RenderError{{}, RenderError::failed{"x"}}.isTransient()));
}

} // namespace
} // namespace ovik
