#include <gtest/gtest.h>

#include "OvikCompositor/BakedImageCache.h"
#include "OvikCompositor/MemoTable.h"
#include "OvikCompositor/PictureCache.h"
#include "OvikCompositor/RenderError.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/image/ImageColor.h"

namespace ovik {
namespace {

using Cache = BakedImageCache<int>;

TEST(BakedImageCache, KeepsWithinItsBudgetLeastRecentlyUsedFirst) {
    Cache cache(100);
    const auto bake = [&](int key, std::int64_t bytes) {
        cache.value(key, [&] { return std::optional(Cache::Baked{Image::fromColor(ImageColor{1, 0, 0, 1}), bytes}); });
    };
    bake(1, 40);
    bake(2, 40);
    bake(1, 40); // a hit: 1 is now the newer
    bake(3, 40); // over budget: 2 goes
    EXPECT_EQ(cache.bakes(), 3);
    EXPECT_EQ(cache.bytes(), 80);
    bake(1, 40);
    EXPECT_EQ(cache.bakes(), 3);
    bake(2, 40);
    EXPECT_EQ(cache.bakes(), 4);
    // A picture over the whole budget stays, alone.
    bake(4, 500);
    EXPECT_EQ(cache.count(), 1u);
    EXPECT_EQ(cache.bytes(), 500);
    // A failed bake keeps nothing.
    EXPECT_FALSE(cache.value(5, [] { return std::optional<Cache::Baked>(); }));
    EXPECT_EQ(cache.bakes(), 5);
}

TEST(MemoTable, EmptiesWholeWhenFull) {
    MemoTable<int, int> table(2);
    EXPECT_EQ(table.value(1, [] { return 10; }), 10);
    EXPECT_EQ(table.value(1, [] { return 11; }), 10);
    table.value(2, [] { return 20; });
    table.value(3, [] { return 30; });
    EXPECT_EQ(table.count(), 1u);
    EXPECT_EQ(table.value(3), 30);
}

TEST(PictureCache, KeepsTheSixteenLastUsed) {
    PictureCache cache;
    const ImageBox picture{std::make_shared<const CGImage>(1, 1, 4, std::vector<std::uint8_t>(4))};
    const auto key = [](int i) { return PictureCache::Key{std::to_string(i), 0}; };
    for (int i = 0; i <= 16; ++i) {
        cache.insert(key(i), picture);
        if (i == 15) cache.value(key(0)); // 0 is used again, so 1 is the oldest when a 17th comes
    }
    EXPECT_TRUE(cache.value(key(0)) && cache.value(key(2)) && cache.value(key(16)));
    EXPECT_FALSE(cache.value(key(1)));
}

TEST(RenderError, MessagesAndRetries) {
    const L10n::LanguageOverride english("en");
    // Sizes are whole megabytes, rounded up.
    EXPECT_STREQ(RenderFailure(RenderError::diskSpaceLow{150'000'000, 1}).what(),
                 "There isn't enough room on the disk: 150 MB needed, 1 MB free.");
    EXPECT_TRUE((RenderError{{}, RenderError::cancelled{}}.isTransient()));
    EXPECT_FALSE((RenderError{{}, RenderError::failed{"x"}}.isTransient()));
}

} // namespace
} // namespace ovik
