#include "runtime/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <string_view>

#include "runtime/RuntimeError.h"

namespace sw {

namespace {

void WriteAll(int fd, std::string_view bytes) {
  // Past a file-size limit a write must fail with an error, not kill the game.
  [[maybe_unused]] static const auto previous = ::signal(SIGXFSZ, SIG_IGN);
  while (!bytes.empty()) {
    const ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n == -1) {
      if (errno == EINTR) continue;
      throw RuntimeError::FromErrno(errno);
    }
    bytes.remove_prefix(static_cast<size_t>(n));
  }
}

}  // namespace

namespace {

// The whole of a regular file no bigger than maxBytes.
std::string ReadFile(const std::string& name, off_t maxBytes) {
  if (name.empty()) throw RuntimeError(errBadFileName);
  // Opened without waiting: a named pipe in the file's place is refused, not waited on.
  const int fd = ::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd == -1) throw RuntimeError::FromErrno(errno);
  std::string out;
  try {
    struct stat st {};
    if (::fstat(fd, &st) != 0) throw RuntimeError::FromErrno(errno);
    if (!S_ISREG(st.st_mode)) throw RuntimeError(errPathFileAccess);
    if (st.st_size > maxBytes) throw RuntimeError(7);  // "Out of memory"
    char buf[BUFSIZ];
    for (ssize_t n; (n = ::read(fd, buf, sizeof buf)) != 0;) {
      if (n == -1) {
        if (errno == EINTR) continue;
        throw RuntimeError::FromErrno(errno);
      }
      out.append(buf, static_cast<size_t>(n));
    }
  } catch (...) {
    ::close(fd);
    throw;
  }
  ::close(fd);
  return out;
}

}  // namespace

std::string ReadWholeFile(const std::string& name) { return ReadFile(name, std::numeric_limits<off_t>::max()); }

// A real options or webmaster file is a few kilobytes; anything this big is not one.
std::string ReadDataFile(const std::string& name) { return ReadFile(name, off_t{16} * 1024 * 1024); }

namespace {

// The file a name stands for: a symbolic link is written through to the file it leads to. A name that
// leads to no file (none yet, a broken link, a loop of links) is written as it stands.
std::string Target(const std::string& name) {
  std::error_code ec;
  const std::filesystem::path file = std::filesystem::canonical(name, ec);
  return ec ? name : file.string();
}

void SyncDirectoryOf(const std::string& path) {
  const std::filesystem::path dir = std::filesystem::path(path).parent_path();
  const int fd = ::open(dir.empty() ? "." : dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd == -1) return;
  ::fsync(fd);
  ::close(fd);
}

}  // namespace

void WriteFileAtomic(const std::string& name, const std::string& bytes, mode_t newMode) {
  if (name.empty()) throw RuntimeError(errBadFileName);

  const std::string path = Target(name);
  mode_t mode = newMode;
  struct stat st {};
  if (::stat(path.c_str(), &st) == 0) {
    // A file its owner made read-only stays as it is; one that is kept keeps its mode.
    if ((st.st_mode & 0222) == 0) throw RuntimeError(errPermission);
    mode = st.st_mode & 07777;
  }
  // A temporary of its own beside the file: two games in one directory never share one.
  std::string tmp = path + ".XXXXXX";
  const int fd = ::mkostemp(tmp.data(), O_CLOEXEC);
  if (fd == -1) throw RuntimeError::FromErrno(errno);
  try {
    if (::fchmod(fd, mode) != 0) throw RuntimeError::FromErrno(errno);
    WriteAll(fd, bytes);
    if (::fsync(fd) != 0) throw RuntimeError::FromErrno(errno);  // the disk could not keep it
  } catch (...) {
    ::close(fd);
    ::unlink(tmp.c_str());
    throw;
  }
  if (::close(fd) != 0) {
    const int err = errno;
    ::unlink(tmp.c_str());
    throw RuntimeError::FromErrno(err);
  }
  if (std::rename(tmp.c_str(), path.c_str()) != 0) {
    const int err = errno;
    ::unlink(tmp.c_str());
    throw RuntimeError::FromErrno(err);
  }
  SyncDirectoryOf(path);
}

void WriteFile(const std::string& name, const std::string& bytes) {
  if (name.empty()) throw RuntimeError(errBadFileName);
  const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd == -1) throw RuntimeError::FromErrno(errno);
  try {
    WriteAll(fd, bytes);
  } catch (...) {
    ::close(fd);
    throw;
  }
  if (::close(fd) != 0) throw RuntimeError::FromErrno(errno);
}

void DeleteFile(const std::string& name) {
  if (::unlink(name.c_str()) != 0) throw RuntimeError::FromErrno(errno);
}

bool FileExists(const std::string& name) {
  struct stat st {};
  return ::stat(name.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

void KeepAside(const std::string& name) {
  if (!FileExists(name)) return;
  WriteFileAtomic(name + ".bad", ReadWholeFile(name), 0600);
}

}  // namespace sw
