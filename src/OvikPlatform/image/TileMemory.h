#pragma once
// Pixel memory for tiles, recycled per thread. A render asks for many buffers of the same few
// sizes, and memory fresh from the system costs a page fault every 4 KiB: a thread keeps a
// few buffers it has let go of and hands them out again.
#include <cstddef>
#include <memory>

#include "OvikPlatform/image/Pixel.h"

namespace ovik {

class TileMemory {
public:
    /// Room for `count` pixels, of unspecified contents. The buffer goes back to the cache
    /// of whichever thread lets go of it last.
    static std::shared_ptr<Pixel[]> take(std::size_t count);
};

} // namespace ovik
