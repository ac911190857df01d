// A file whose text survives the process and the system, however they end.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace vantrix::check {

class KeptFile {
 public:
  // Opens an empty file, in place of an existing one.
  explicit KeptFile(const std::filesystem::path& path);

  // Appends text, which survives this process.
  void Append(const std::string& text);
  // Waits until all the text is on the disk, where it survives the system.
  void Keep();

  void Remove();

  // Whether the file could be opened and everything was written so far.
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
