#pragma once
// Words a failure for a person through the text table: a decoding error by its kind and the
// place in the document, a file error by its cause and the file's name. Errors that already
// hold finished text give it unchanged.
#include <exception>
#include <string>

namespace ovik {

std::string localizedDescription(const std::exception& error);

} // namespace ovik
