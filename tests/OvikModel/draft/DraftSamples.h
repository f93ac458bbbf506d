#pragma once
// Drafts for tests: the smallest sound draft, built from the parts a test changes, and the
// rich stored draft that uses every record of the document.
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace ovik::testing {

constexpr std::string_view canvasMedia =
    R"({"id":"00000000-0000-0000-0000-00000000000A","source":{"canvas":{"pixelSize":{"height":9,"width":16}}}})";
constexpr std::string_view stillSection = R"({"id":"00000000-0000-0000-0000-00000000000C",)"
                                          R"("media":"00000000-0000-0000-0000-00000000000A","stillDuration":1000000})";
constexpr std::string_view originalStyle =
    R"({"aspect":"free","background":"none","cornerRadius":0,"deviceFrame":"none","padding":0,"shadow":0})";

/// A compact draft of the given media and sections lists; `extra` adds keys (with a leading comma).
inline std::string draftJSON(std::string_view media = canvasMedia, std::string_view sections = stillSection,
                             std::string_view extra = "") {
    return R"({"schema":8,"id":"6F1C2B9A-0D4E-4B7A-9C3E-2A1B0C9D8E7F","name":"n","createdAt":0,"kept":false,)"
           R"("edited":false,"media":[)" +
           std::string(media) + R"(],"sections":[)" + std::string(sections) + R"(],"style":)" +
           std::string(originalStyle) + std::string(extra) + "}";
}

inline std::string richDraftText() {
    std::ifstream in(OVIK_TEST_DATA "/drafts/rich.json", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

} // namespace ovik::testing
