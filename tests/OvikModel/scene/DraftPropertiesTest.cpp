#include <gtest/gtest.h>

#include "PropertyRefusal.h"

#include <map>

#include "OvikL10n/L10n.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/scene/DraftProperties.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyTable.h"

namespace ovik {
namespace {

// A draft with one rectangle named "Box" on a canvas.
Draft boxDraft() {
    Draft draft;
    ObjectNode box;
    box.id = ObjectID{*UUID::parse("0B0B0B0B-0000-4000-8000-000000000001")};
    box.name = "Box";
    box.content = ObjectContent::makeAnnotation(AnnotationDefaults::standard().rectangle(CGRect{{10, 10}, {50, 40}}));
    draft.objects = CowList<ObjectNode>({box});
    return draft;
}

const char* const mediaText = "0B0B0B0B-0000-4000-8000-0000000000AA";

// The box on a canvas of its own: one media, one still section of 5 s.
Draft canvasDraft() {
    Draft draft = boxDraft();
    Media media;
    media.id = MediaID{*UUID::parse(mediaText)};
    media.source = MediaSource::makeCanvas(Canvas{PixelSize{640, 480}});
    Section section;
    section.id = SectionID{*UUID::parse("0B0B0B0B-0000-4000-8000-0000000000BB")};
    section.media = media.id;
    section.length = Section::Length::makeStill(MediaDuration::fromSeconds(5));
    draft.media = CowList<Media>({media});
    draft.sections = CowList<Section>({section});
    return draft;
}

// A value the row takes that differs from `current`.
JSONValue otherValue(const PropertySpec& spec, const JSONValue& current) {
    // Rows written in a form of their own.
    static const std::map<std::string, std::string> own = {{"style.background", R"("wallpaper")"},
                                                           {"style.image", R"("images/back.png")"},
                                                           {"style.aspect", R"("16:9")"},
                                                           {"style.crop", "[1, 2, 30, 40]"},
                                                           {"style.motionBlur", R"("strong")"}};
    if (const auto found = own.find(spec.name); found != own.end()) return JSONValue::parse(found->second);
    if (const bool* b = current.boolean()) return JSONValue(!*b);
    if (!spec.words.empty()) return JSONValue(spec.words.back() == *current.string() ? spec.words.front() : spec.words.back());
    if (spec.form == PropertyForm::pointOrNone) return JSONValue::parse("[1, 2]");
    if (spec.form == PropertyForm::pointsOrNone) return JSONValue::parse("[[0, 0], [1, 2]]");
    if (spec.type == PropertyValueType::color) return JSONValue(std::string("#123456"));
    double number = 0;
    if (!current.number(number) && spec.type == PropertyValueType::text) return JSONValue(std::string("Renamed"));
    const double lo = spec.range ? spec.range->first : 0, hi = spec.range ? spec.range->second : 100;
    const double middle = (lo + hi) / 2;
    return JSONValue(number == middle ? lo : middle);
}

TEST(DraftProperties, EveryWritableRowRoundTrips) {
    const L10n::LanguageOverride english("en");
    int written = 0;
    for (const PropertySpec& spec : PropertyTable::specs()) {
        if (!spec.writes()) continue;
        Draft draft = boxDraft();
        const std::string text = spec.objectAccess ? "Box." + spec.name : spec.name;
        const PropertyPath path = PropertyPath::parse(text, draft);
        // Rows of other kinds, and details of records a rectangle doesn't hold, read nothing.
        const auto current = propertyValue(draft, path);
        if (!current) continue;
        const JSONValue other = otherValue(spec, *current);
        EXPECT_TRUE(setProperty(draft, other, path)) << text;
        EXPECT_TRUE(propertyValue(draft, path)->same(other)) << text << " " << other.compact();
        // The same value again names no step.
        EXPECT_FALSE(setProperty(draft, other, path)) << text;
        ++written;
    }
    EXPECT_GE(written, 45);
}

TEST(DraftProperties, RefusalsNameTheProblemAndChangeNothing) {
    const L10n::LanguageOverride english("en");
    struct Case {
        const char* path;
        JSONValue value;
        const char* message;
    };
    const Case cases[] = {
        {"style.padding", JSONValue(500.0), "takes 0 to 400, but got 500"},
        {"style.padding", JSONValue(std::string("wide")), "needs a number"},
        {"cursor.look", JSONValue(std::string("hand")), "arrow"},
        {"cursor.color", JSONValue(std::string("red")), "#RRGGBB"},
        {"Box.hidden", JSONValue(1.0), "true or false"},
        {"Box.position", JSONValue(1.0), "animated by actions"},
        {"Box.effects[0].amount", JSONValue(1.0), "there are no effects here"},
    };
    for (const Case& c : cases) testing::expectRefused(boxDraft(), c.path, c.value, c.message);
}

TEST(DraftProperties, SettingsWrittenInFormsOfTheirOwn) {
    const L10n::LanguageOverride english("en");
    struct Case {
        const char* path;
        const char* value;
        const char* readBack; // what the path reads afterwards
    };
    const std::string blend = std::string(mediaText) + ".blend";
    const Case cases[] = {
        {"style.background", R"("#102030")", R"("#102030")"},
        {"style.background", R"("flame")", R"("flame")"},
        {"style.background", R"({"angle":30,"from":"#000000","to":"#FFFFFF"})",
         R"({"angle":30,"from":"#000000","to":"#FFFFFF"})"},
        {"style.image", R"("images/back.png")", R"("images/back.png")"},
        {"style.aspect", R"("4:3")", R"("4:3")"},
        {"style.crop", "[0, 0, 320, 240]", "[0, 0, 320, 240]"},
        {"style.paused", "true", "true"},
        {"style.motionBlur", R"("on")", R"("natural")"},
        {"style.shutter", "200", "200"},
        {"style.blurQuality", R"("best")", R"("best")"},
        {"audio.volume", "0.5", "0.5"},
        {"screenshot-animation.duration", "12", "12"},
        {blend.c_str(), R"("multiply")", R"("multiply")"},
        {"Box.blend", R"("screen")", R"("screen")"},
    };
    for (const Case& c : cases) {
        Draft draft = canvasDraft();
        const PropertyPath path = PropertyPath::parse(c.path, draft);
        setProperty(draft, JSONValue::parse(c.value), path);
        EXPECT_EQ(propertyValue(draft, path)->compact(), JSONValue::parse(c.readBack).compact()) << c.path;
    }
}

TEST(DraftProperties, SettingsThatSpanRecords) {
    Draft draft = canvasDraft();
    const auto set = [&](const char* path, const char* value) {
        setProperty(draft, JSONValue::parse(value), PropertyPath::parse(path, draft));
    };
    set("style.image", R"("images/back.png")");
    EXPECT_EQ(propertyValue(draft, PropertyPath::parse("style.background", draft))->compact(), R"("image")");
    set("style.image", R"("none")");
    EXPECT_TRUE(draft.style.background.is<Background::none>());

    // Blur on over a strong shutter keeps it; off forgets the record.
    set("style.motionBlur", R"("strong")");
    set("style.motionBlur", R"("on")");
    EXPECT_EQ(draft.style.motionBlur->shutter, MotionBlur::strong);
    set("style.motionBlur", R"("off")");
    EXPECT_FALSE(draft.style.motionBlur);

    // Normal blending is stored as no blend at all.
    set("Box.blend", R"("multiply")");
    set("Box.blend", R"("normal")");
    EXPECT_FALSE(draft.objects[0].blend);

    // The two recorded tracks read as one level only while they agree.
    draft.audio.system.volume = 0.25;
    EXPECT_FALSE(propertyValue(draft, PropertyPath::parse("audio.volume", draft)));
    set("audio.volume", "0.75");
    EXPECT_EQ(draft.audio.system.volume, 0.75);
    EXPECT_EQ(draft.audio.microphone.volume, 0.75);
}

TEST(DraftProperties, SettingRefusals) {
    const L10n::LanguageOverride english("en");
    struct Case {
        const char* path;
        const char* value;
        const char* message;
    };
    const Case cases[] = {
        {"style.background", R"("sky")", "a gradient's name (flame"},
        {"style.background", R"({"from":"#000000","to":"#FFFFFF"})", "angle"},
        {"style.background", R"("image")", "once style.image names one"},
        {"style.image", R"("../outside.png")", "inside the package"},
        {"style.image", R"("/etc/passwd")", "inside the package"},
        {"style.aspect", R"("16:0")", "width:height"},
        {"style.aspect", R"("wide")", "width:height"},
        {"style.crop", "[0, 0, 0, 10]", "width and height above 0"},
        {"style.crop", R"("all")", "or none"},
        {"style.shutter", "5", "takes 10 to 360"},
        {"screenshot-animation.duration", "40", "takes 1 to 30"},
    };
    for (const Case& c : cases) testing::expectRefused(canvasDraft(), c.path, JSONValue::parse(c.value), c.message);
}

TEST(DraftProperties, SettingsThatNeedAKindOfDraft) {
    const L10n::LanguageOverride english("en");
    Draft twoCaptures = canvasDraft();
    Media second = twoCaptures.media[0];
    second.id = MediaID{*UUID::parse("0B0B0B0B-0000-4000-8000-0000000000CC")};
    twoCaptures.media = CowList<Media>({twoCaptures.media[0], second});
    const PropertyPath crop = PropertyPath::parse("style.crop", twoCaptures);
    EXPECT_FALSE(propertyValue(twoCaptures, crop));
    EXPECT_THROW(setProperty(twoCaptures, JSONValue::parse("[0, 0, 5, 5]"), crop), PropertyError);

    Draft recording = canvasDraft();
    std::vector<Media> media = recording.media.items();
    media[0].source = MediaSource::makeRecording(Recording{});
    recording.media = CowList<Media>(std::move(media));
    const PropertyPath animated = PropertyPath::parse("screenshot-animation.animated", recording);
    EXPECT_FALSE(propertyValue(recording, animated));
    EXPECT_THROW(setProperty(recording, JSONValue(true), animated), PropertyError);
}

TEST(DraftProperties, EqualValuesInAnotherFormChangeNothing) {
    Draft draft = boxDraft();
    EXPECT_TRUE(setProperty(draft, JSONValue(std::string("#FF0000")), PropertyPath::parse("cursor.color", draft)));
    EXPECT_FALSE(setProperty(draft, JSONValue(std::string("#ff0000")), PropertyPath::parse("cursor.color", draft)));
    EXPECT_TRUE(setProperty(draft, JSONValue(std::int64_t(3)), PropertyPath::parse("style.padding", draft)));
    EXPECT_FALSE(setProperty(draft, JSONValue(3.0), PropertyPath::parse("style.padding", draft)));
}

TEST(DraftProperties, PathsFindTheirTargets) {
    const Draft draft = boxDraft();
    const auto byName = PropertyPath::parse("Box.hidden", draft);
    EXPECT_EQ(byName, PropertyPath::parse("0B0B0B0B-0000-4000-8000-000000000001.hidden", draft));
    EXPECT_EQ(byName.description(), "0B0B0B0B-0000-4000-8000-000000000001.hidden");
    EXPECT_EQ(PropertyPath::parse("style.padding", draft).description(), "style.padding");
    const auto kindOf = [&](const char* text) {
        try {
            PropertyPath::parse(text, draft);
        } catch (const PropertyError& error) {
            return int(error.kind());
        }
        return -1;
    };
    EXPECT_EQ(kindOf("Crate.hidden"), int(PropertyError::Kind::notFound));
    EXPECT_EQ(kindOf("0B0B0B0B-0000-4000-8000-000000000009.hidden"), int(PropertyError::Kind::notFound));
    EXPECT_EQ(kindOf("Box.nonsense"), int(PropertyError::Kind::invalid));
    EXPECT_EQ(kindOf("padding"), int(PropertyError::Kind::invalid));
}

} // namespace
} // namespace ovik
