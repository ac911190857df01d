// A file whose text outlives the process and the system, however they end.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace vantrix::check {

class KeptFile {
 public:
  // Opens a new file in place of one that stands there.
  explicit KeptFile(const std::filesystem::path& path);

  // Appends: the text outlives this process.
  void Append(const std::string& text);
  // Waits until all of it is on the disk: it outlives the system.
  void Keep();

  void Remove();

  // Whether it could be opened, and all was written so far.
  bool IsGood() const { return isGood_; }
  const std::filesystem::path& Path() const { return path_; }

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  std::filesystem::path path_;
  std::unique_ptr<std::FILE, Close> file_;
  bool isGood_;
};

}  // namespace vantrix::check
