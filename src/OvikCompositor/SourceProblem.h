#pragma once
// Why a picture or movie of a draft can't be read, in words for a person: the file by its path
// in the package and what is wrong with it, never the decoder's or the system's own text.
#include <exception>
#include <string>

#include "OvikModel/PackagePath.h"

namespace ovik {

std::string sourceProblem(const PackagePath& path, const std::exception& error);

} // namespace ovik
