// The checksum that identifies a file.
#pragma once

#include <filesystem>
#include <span>
#include <string>

namespace vantrix::host {

// Returns the SHA-256 in 64 hexadecimal digits.
std::string Sha256(std::span<const char> bytes);
// The same for a file; empty if it cannot be read.
std::string Sha256OfFile(const std::filesystem::path& path);

}  // namespace vantrix::host
