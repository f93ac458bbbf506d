#pragma once
// Which kind of work a frame counts towards in the frame statistics. `export` is a keyword,
// so that case is `export_` here.
namespace ovik {

enum class RenderPath { preview, export_, still, other };

} // namespace ovik
