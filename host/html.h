// Text as a page for a browser holds it.
#pragma once

#include <string>

namespace vantrix::host {

// As the content of an element, or of an attribute in double quotes.
std::string Escaped(const std::string& text);

}  // namespace vantrix::host
