// Text in HTML pages.
#pragma once

#include <string>

namespace vantrix::host {

// Escapes text for the content of an element, or of an attribute in double quotes.
std::string Escaped(const std::string& text);

}  // namespace vantrix::host
