#include <gtest/gtest.h>

#include "OvikL10n/L10n.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/objects/AnnotationLimits.h"
#include "OvikModel/objects/ObjectNamer.h"

namespace ovik {
namespace {

ObjectNode named(std::string name, ObjectContent content) {
    ObjectNode node;
    node.id = ObjectID::random();
    node.name = std::move(name);
    node.content = std::move(content);
    return node;
}

TEST(ObjectNamer, CountsOnFromTheHighestNumberOfEachKind) {
    L10n::LanguageOverride chinese("zh-Hans");
    const auto defaults = AnnotationDefaults::standard();
    const auto rectangle = ObjectContent::makeAnnotation(defaults.rectangle({}));
    const auto ellipse = ObjectContent::makeAnnotation(defaults.ellipse({}));
    const ObjectNodes nodes{
        named("矩形 3", rectangle),
        named("矩形 x", rectangle),
        named("编组 2", ObjectContent::makeGroup({named("矩形 -7", rectangle), named("矩形 12", ellipse)})),
        named("矩形  9", rectangle),
        named("矩形 99999999999999999999", rectangle),
    };
    ObjectNamer namer = ObjectNamer::over(nodes);
    const auto rectangles = ObjectNamer::Key::makeKind(AnnotationKind::rectangle);
    EXPECT_EQ(namer.next(rectangles), "矩形 4");
    EXPECT_EQ(namer.next(rectangles), "矩形 5");
    EXPECT_EQ(namer.next(ObjectNamer::Key::makeKind(AnnotationKind::ellipse)), "椭圆 1");
    EXPECT_EQ(namer.next(ObjectNamer::Key::makeGroup()), "编组 3");
    EXPECT_EQ(namer.next(ObjectNamer::Key::makeKind(AnnotationKind::pen)), "画笔 1");
}

TEST(AnnotationDefaults, FactoriesFitWhatTheyAreGiven) {
    const auto defaults = AnnotationDefaults::standard();
    // A frame drawn leftwards and upwards is stored with a positive size.
    EXPECT_EQ(defaults.rectangle({{100, 50}, {-40, -10}}).as<Annotation::rectangle>().value.frame,
              (CGRect{{60, 40}, {40, 10}}));
    EXPECT_EQ(defaults.arrow({0, 0}, {1, 1}).as<Annotation::arrow>().value.heads, ArrowHeads::end);
    EXPECT_EQ(defaults.line({0, 0}, {1, 1}).as<Annotation::line>().value.heads, ArrowHeads::none);
    EXPECT_FALSE(defaults.text({1, 2}, "hi").as<Annotation::text>().value.formula);
    EXPECT_TRUE(defaults.formula({1, 2}, 30).as<Annotation::text>().value.formula);
    // A lens is a square of a quarter of the shorter side of what it looks at, in its middle.
    EXPECT_EQ(defaults.magnifier(2, {{0, 0}, {400, 200}}).as<Annotation::magnifier>().value.frame,
              (CGRect{{175, 75}, {50, 50}}));
    EXPECT_GE(defaults.counter({}).as<Annotation::counter>().value.diameter, AnnotationLimits::minimumCounterDiameter);
}

} // namespace
} // namespace ovik
