#include "runtime/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include "runtime/RuntimeError.h"

namespace sw {

namespace {

void WriteAll(int fd, const std::string& bytes) {
  // Past a file-size limit a write must fail with an error, not kill the game.
  static const bool bIgnoreFileSizeSignal = [] { return ::signal(SIGXFSZ, SIG_IGN) != SIG_ERR; }();
  (void)bIgnoreFileSizeSignal;
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (n == -1) {
      if (errno == EINTR) continue;
      throw RuntimeError::FromErrno(errno);
    }
    done += static_cast<size_t>(n);
  }
}

}  // namespace

std::string ReadWholeFile(const std::string& name) {
  if (name.empty()) throw RuntimeError(errBadFileName);
  const int fd = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd == -1) throw RuntimeError::FromErrno(errno);
  struct stat st {};
  if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
    ::close(fd);
    throw RuntimeError(errPathFileAccess);
  }
  std::string out;
  char buf[65536];
  for (;;) {
    const ssize_t n = ::read(fd, buf, sizeof buf);
    if (n == -1) {
      if (errno == EINTR) continue;
      const int err = errno;
      ::close(fd);
      throw RuntimeError::FromErrno(err);
    }
    if (n == 0) break;
    out.append(buf, static_cast<size_t>(n));
  }
  ::close(fd);
  return out;
}

std::string ReadDataFile(const std::string& name) {
  // A real options or webmaster file is a few kilobytes; anything this big is not one.
  constexpr off_t kMaxFileBytes = 16 * 1024 * 1024;
  struct stat st {};
  if (::stat(name.c_str(), &st) != 0) throw RuntimeError::FromErrno(errno);
  if (!S_ISREG(st.st_mode)) throw RuntimeError(errPathFileAccess);
  if (st.st_size > kMaxFileBytes) throw RuntimeError(7);  // "Out of memory"
  return ReadWholeFile(name);
}

namespace {

// The file a name stands for: a symbolic link is written through to its target.
std::string Target(const std::string& name) {
  std::string path = name;
  for (int hops = 0; hops < 16; ++hops) {
    struct stat st {};
    if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
    std::string link(4096, '\0');
    const ssize_t n = ::readlink(path.c_str(), link.data(), link.size());
    if (n <= 0) return path;
    link.resize(static_cast<size_t>(n));
    const size_t slash = path.rfind('/');
    path = (link[0] == '/' || slash == std::string::npos) ? link : path.substr(0, slash + 1) + link;
  }
  return path;
}

void SyncDirectoryOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  const std::string dir = slash == std::string::npos ? "." : (slash == 0 ? "/" : path.substr(0, slash));
  const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
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
    if (::fsync(fd) != 0 && errno != EINVAL && errno != EROFS) throw RuntimeError::FromErrno(errno);
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
