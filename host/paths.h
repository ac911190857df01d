// Paths as programs receive and show them: in UTF-8 on every system.
#pragma once

#include <filesystem>
#include <string>

namespace vantrix::host {

inline std::filesystem::path PathOf(const std::string& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}
inline std::string TextOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace vantrix::host
