#include <gtest/gtest.h>
#include "OvikPlatform/json/JSONCoding.h"
#include "OvikPlatform/json/JSONWriter.h"
using namespace ovik;
struct P { std::int64_t width = 0; std::optional<double> scale; std::string name = "x";
  bool operator==(const P&) const = default;
  static constexpr auto jsonFields() { return std::tuple{required("width", &P::width), optional("scale", &P::scale), defaulted("name", &P::name)}; } };
TEST(Smoke, RoundTrip) {
  P p{3, 1.5, "x"};
  auto v = encodeJSON(p);
  EXPECT_EQ(v.compact(), "{\"scale\":1.5,\"width\":3}");
  EXPECT_EQ(decodeJSON<P>(std::string_view(v.compact())), p);
}
