#include <gtest/gtest.h>

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

// A value the row takes that differs from `current`.
JSONValue otherValue(const PropertySpec& spec, const JSONValue& current) {
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
    EXPECT_GE(written, 30);
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
        {"Box.effects[0].amount", JSONValue(1.0), "yet"},
    };
    for (const Case& c : cases) {
        Draft draft = boxDraft();
        const std::string before = encodeJSON(draft).compact();
        try {
            setProperty(draft, c.value, PropertyPath::parse(c.path, draft));
            ADD_FAILURE() << c.path << " was not refused";
        } catch (const PropertyError& error) {
            EXPECT_EQ(error.kind(), PropertyError::Kind::invalid);
            EXPECT_NE(std::string(error.what()).find(c.message), std::string::npos) << error.what();
        }
        EXPECT_EQ(encodeJSON(draft).compact(), before) << c.path;
    }
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
