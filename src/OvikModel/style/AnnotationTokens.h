#pragma once
// Which token slots an annotation has, and how a token's value is written into one. A slot
// is had exactly when the annotation stores the field it writes: `color` the outline's or
// the text's colour, `fill` the paint, `background` a text's background, `font` a text's
// face and weight, `size` its font size. No annotation has `cornerRadius` or `padding`:
// those slots belong to the draft's style.
#include "OvikModel/objects/Annotation.h"
#include "OvikModel/style/TokenRefs.h"
#include "OvikModel/style/TokenValue.h"

namespace ovik {

bool has(TokenSlot slot, AnnotationKind kind);

/// Writes the value into the slot's field; an annotation without the slot, or a value of
/// another kind, is left as it is. A shape without an outline keeps having none.
void applyToken(Annotation& annotation, TokenSlot slot, const TokenValue& value);

} // namespace ovik
