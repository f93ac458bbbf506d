#pragma once
// A field that takes its default when its key is absent and is written always: the form of
// most settings records of a draft. The record codec reads every presence but `required` as
// optional, and writes every presence but `optional` and `defaulted` unconditionally, so this
// presence needs no code of its own there.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

inline constexpr JSONPresence writtenAlwaysPresence = static_cast<JSONPresence>(3);

template <class Coder = void, class Owner, class Member>
constexpr auto writtenAlways(std::string_view key, Member Owner::*member) {
    return JSONField<json_detail::CoderFor<Coder, Member>, Owner, Member, writtenAlwaysPresence>{key, member};
}

} // namespace ovik
