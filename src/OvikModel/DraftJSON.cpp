#include "OvikModel/DraftJSON.h"

namespace ovik::DraftJSON {

JSONWriteOptions encoder(bool pretty) { return JSONWriteOptions{.pretty = pretty, .escapeSlashes = false}; }

} // namespace ovik::DraftJSON
