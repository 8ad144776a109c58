#pragma once
// A fresh, empty directory that becomes the current directory for as long as
// the object lives; the old current directory comes back and the directory
// is removed afterwards. The game reads and writes its files by bare names.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace sw::test {

class TempDir {
 public:
  TempDir() : old_(std::filesystem::current_path()) {
    std::string pattern = (std::filesystem::temp_directory_path() / "skitterweb-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
    std::filesystem::current_path(path_);
  }
  ~TempDir() {
    std::error_code ec;
    std::filesystem::current_path(old_, ec);
    // A test may have taken the write permission away; give it back before removing.
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
    std::filesystem::remove_all(path_, ec);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path old_;
  std::filesystem::path path_;
};

// Small helpers for files in the current directory.
inline std::string Slurp(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void Spit(const std::string& name, const std::string& bytes) {
  std::ofstream out(name, std::ios::binary | std::ios::trunc);
  out << bytes;
}

}  // namespace sw::test
