#pragma once
// What an effect runs over: an object's picture, a media's capture, or the whole picture (a
// look). Some parameters take other defaults on the whole picture.
namespace ovik {

enum class EffectPlace { object, media, picture };

} // namespace ovik
