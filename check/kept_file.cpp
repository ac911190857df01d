#include "check/kept_file.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace vantrix::check {
namespace {

#if defined(_WIN32)
std::FILE* Open(const std::filesystem::path& path) { return _wfopen(path.c_str(), L"wb"); }
bool ToDisk(std::FILE* file) { return _commit(_fileno(file)) == 0; }
#else
std::FILE* Open(const std::filesystem::path& path) { return std::fopen(path.c_str(), "wb"); }
bool ToDisk(std::FILE* file) { return fsync(fileno(file)) == 0; }
#endif

}  // namespace

KeptFile::KeptFile(const std::filesystem::path& path)
    : path_(path), file_(Open(path)), isGood_(file_ != nullptr) {}

void KeptFile::Append(const std::string& text) {
  isGood_ = isGood_ && std::fwrite(text.data(), 1, text.size(), file_.get()) == text.size() &&
            std::fflush(file_.get()) == 0;
}

void KeptFile::Keep() { isGood_ = isGood_ && ToDisk(file_.get()); }

void KeptFile::Remove() {
  file_.reset();
  isGood_ = false;
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

}  // namespace vantrix::check
