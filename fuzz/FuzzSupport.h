#pragma once
// Shared by the fuzz targets: a private working directory (entered once, since
// the game reads and writes its files in the current directory) and checks
// that stop the run with a message when an invariant breaks.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace sw::fuzz {

inline std::filesystem::path& PrivateDir() {
  static std::filesystem::path dir;
  return dir;
}

inline void RemovePrivateDir() {
  std::error_code ec;
  std::filesystem::current_path("/", ec);
  std::filesystem::remove_all(PrivateDir(), ec);
}

// Creates a fresh directory and makes it the current directory. A memory file
// system is preferred: saving flushes files to disk, which would slow every run.
inline bool EnterPrivateDir() {
  std::error_code ec;
  const std::filesystem::path base =
      ::access("/dev/shm", W_OK) == 0 ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path(ec);
  std::string pattern = (base / "skitterweb-fuzz-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr || ::chdir(pattern.c_str()) != 0) {
    std::perror("skitterweb fuzz: private directory");
    std::abort();
  }
  PrivateDir() = pattern;
  std::atexit(RemovePrivateDir);
  return true;
}

inline void Check(bool ok, const char* what) {
  if (!ok) {
    std::fprintf(stderr, "skitterweb fuzz: invariant broken: %s\n", what);
    std::abort();
  }
}

inline void WriteBytes(const char* name, const uint8_t* data, size_t size) {
  std::ofstream out(name, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  Check(static_cast<bool>(out), "input file written");
}

inline std::string ReadBytes(const char* name) {
  std::ifstream in(name, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void RemoveFile(const char* name) {
  std::error_code ec;
  std::filesystem::remove(name, ec);
}

}  // namespace sw::fuzz
