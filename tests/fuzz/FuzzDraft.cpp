// The draft decoder on arbitrary bytes: either a typed error, or a draft whose written form
// reads back and writes again to the same bytes. (The draft itself may differ from the one read
// back only in kept JSON, where an integral double reads back as an integer.)
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "OvikModel/Draft.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/DraftSchemaMismatch.h"

namespace {

void check(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ovik;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        const Draft draft = DraftJSON::decode<Draft>(bytes);
        const std::string text = DraftJSON::encode(draft, true);
        const Draft reread = DraftJSON::decode<Draft>(text);
        check(DraftJSON::encode(reread, true) == text);
    } catch (const DecodingError&) {
    } catch (const DraftSchemaMismatch&) {
    } catch (const EncodingError&) {
    }
    return 0;
}
