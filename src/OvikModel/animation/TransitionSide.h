#pragma once
// The two sides of a transition: the section that leaves and the one that comes in.

namespace ovik {

enum class TransitionSide { outgoing, incoming };

} // namespace ovik
