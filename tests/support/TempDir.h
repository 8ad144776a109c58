#pragma once
// A fresh, empty directory that is the current directory for as long as the
// object lives; the game reads and writes its files by bare names.
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
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
    std::filesystem::remove_all(path_, ec);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

 private:
  std::filesystem::path old_, path_;
};

inline std::string Slurp(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void Spit(const std::string& name, const std::string& bytes) {
  std::ofstream(name, std::ios::binary | std::ios::trunc) << bytes;
}

inline std::set<std::string> DirNames() {
  std::set<std::string> names;
  for (const auto& e : std::filesystem::directory_iterator(".")) names.insert(e.path().filename().string());
  return names;
}

// Runs f while no file can grow beyond `bytes`: writes stop part of the way, as on a full disk.
inline void WithFileSizeLimit(size_t bytes, const std::function<void()>& f) {
  struct rlimit saved {};
  ::getrlimit(RLIMIT_FSIZE, &saved);
  struct rlimit lim = saved;
  lim.rlim_cur = bytes;
  auto* oldHandler = ::signal(SIGXFSZ, SIG_IGN);
  ::setrlimit(RLIMIT_FSIZE, &lim);
  f();
  ::setrlimit(RLIMIT_FSIZE, &saved);
  ::signal(SIGXFSZ, oldHandler);
}

// Runs f with the current directory made read-only and returns f's result.
// Root ignores permissions, so as root f runs in a child process that has
// given up root (user nobody) and its result comes back as the exit code.
inline int InReadOnlyDir(const std::function<int()>& f) {
  ::chmod(".", 0555);
  int rc = 0;
  if (::geteuid() != 0) {
    rc = f();
  } else {
    const pid_t pid = ::fork();
    if (pid == 0) {
      if (::setgid(65534) != 0 || ::setuid(65534) != 0) ::_exit(99);
      ::_exit(f());
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    rc = WIFEXITED(status) ? WEXITSTATUS(status) : 98;
  }
  ::chmod(".", 0755);
  return rc;
}

}  // namespace sw::test
