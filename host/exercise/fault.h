// Says what was running when memory outside a plane was touched.
#pragma once

namespace vantrix::host {

// Names what runs from now on, as printf would; an access fault prints the name and
// ends the program with status 1.
[[gnu::format(printf, 1, 2)]] void NameFault(const char* format, ...);
void NameNoFault();

}  // namespace vantrix::host
