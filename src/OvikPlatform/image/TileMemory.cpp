#include "OvikPlatform/image/TileMemory.h"

#include <vector>

namespace ovik {
namespace {

constexpr std::size_t cachedBuffers = 16;
// Larger buffers go back to the system: they are whole intermediates, rare and costly to hold.
constexpr std::size_t largestCached = std::size_t(1) << 22;

// Raw memory: pixels are an implicit-lifetime type, and every use writes before it reads, so
// nothing is spent clearing fresh pages.
Pixel* allocate(std::size_t count) { return static_cast<Pixel*>(::operator new[](count * sizeof(Pixel))); }
void release(Pixel* pixels) { ::operator delete[](pixels); }

struct Buffer {
    std::size_t size;
    Pixel* pixels;
};

struct Cache {
    std::vector<Buffer> free;
    ~Cache();
};

// Stays readable after the cache of its thread is gone, so that late returns are freed.
thread_local bool cacheOpen = true;
thread_local Cache cache;

Cache::~Cache() {
    for (const Buffer& buffer : free) release(buffer.pixels);
    cacheOpen = false;
}

void giveBack(Pixel* pixels, std::size_t size) {
    if (cacheOpen && size <= largestCached && cache.free.size() < cachedBuffers)
        cache.free.push_back({size, pixels});
    else
        release(pixels);
}

// The smallest cached buffer that fits, if it is no more than twice the size asked.
Buffer reuse(std::size_t count) {
    auto best = cache.free.end();
    for (auto b = cache.free.begin(); b != cache.free.end(); ++b)
        if (b->size >= count && b->size <= 2 * count && (best == cache.free.end() || b->size < best->size)) best = b;
    if (best == cache.free.end()) return {count, allocate(count)};
    const Buffer found = *best;
    cache.free.erase(best);
    return found;
}

} // namespace

std::shared_ptr<Pixel[]> TileMemory::take(std::size_t count) {
    const Buffer buffer = cacheOpen ? reuse(count) : Buffer{count, allocate(count)};
    return std::shared_ptr<Pixel[]>(buffer.pixels, [size = buffer.size](Pixel* pixels) { giveBack(pixels, size); });
}

} // namespace ovik
