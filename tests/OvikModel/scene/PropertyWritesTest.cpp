#include <gtest/gtest.h>

#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/scene/DraftProperties.h"
#include "OvikModel/scene/PropertyTable.h"

namespace ovik {
namespace {

// One canvas media in one still section, with a rectangle "Box": every draft row has a place
// to be written.
Draft stillDraft() {
    Draft draft;
    ObjectNode box;
    box.id = ObjectID{*UUID::parse("0C0C0C0C-0000-4000-8000-000000000001")};
    box.name = "Box";
    box.content = ObjectContent::makeAnnotation(AnnotationDefaults::standard().rectangle(CGRect{{10, 10}, {50, 40}}));
    draft.objects = CowList<ObjectNode>({box});
    Media media;
    media.id = MediaID{*UUID::parse("0C0C0C0C-0000-4000-8000-0000000000AA")};
    media.source = MediaSource::makeCanvas(Canvas{PixelSize{640, 480}});
    Section section;
    section.id = SectionID{*UUID::parse("0C0C0C0C-0000-4000-8000-0000000000BB")};
    section.media = media.id;
    section.length = Section::Length::makeStill(MediaDuration::fromSeconds(5));
    draft.media = CowList<Media>({media});
    draft.sections = CowList<Section>({section});
    return draft;
}

// A value the row takes: what it holds now, else its first word or the low end of its range.
JSONValue acceptedValue(const PropertySpec& spec, const std::optional<JSONValue>& current) {
    if (current && !current->isNull()) return *current;
    if (!spec.words.empty()) return JSONValue(spec.words.front());
    if (spec.range) return JSONValue(spec.range->first);
    return JSONValue("none");
}

// What a tool lists as writable on the draft, a write on the draft takes.
TEST(PropertyWrites, EveryRowListedAsWritableOnTheDraftCanBeSetOnIt) {
    const Draft draft = stillDraft();
    const std::vector<PropertyKey> keys = PropertyTable::writableKeys(PropertyTargetKind::draft);
    ASSERT_FALSE(keys.empty());
    for (const PropertyKey key : keys) {
        const PropertySpec& spec = key.spec();
        const PropertyPath path = PropertyPath::parse(spec.name, draft);
        Draft edited = draft;
        EXPECT_NO_THROW(setProperty(edited, acceptedValue(spec, propertyValue(draft, path)), path)) << spec.name;
    }
}

// An offset is kept in whole microseconds: a value finer than that is taken but stores nothing
// new, and a write that changes nothing names no undo step.
TEST(PropertyWrites, AWriteThatStoresNothingNewNamesNoUndoStep) {
    const Draft draft = stillDraft();
    const PropertyPath path = PropertyPath::parse("Box.offset", draft);
    Draft edited = draft;
    EXPECT_EQ(setProperty(edited, JSONValue(1e-9), path), std::nullopt);
    EXPECT_EQ(edited, draft);
    EXPECT_NE(setProperty(edited, JSONValue(0.5), path), std::nullopt);
    EXPECT_NE(edited, draft);
}

} // namespace
} // namespace ovik
