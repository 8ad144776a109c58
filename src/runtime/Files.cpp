#include "runtime/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "runtime/RuntimeError.h"

namespace sw {

namespace {

void WriteAll(int fd, const std::string& bytes) {
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0) {
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
  if (fd < 0) throw RuntimeError::FromErrno(errno);
  struct stat st {};
  if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
    ::close(fd);
    throw RuntimeError(errPathFileAccess);
  }
  std::string out;
  char buf[65536];
  for (;;) {
    const ssize_t n = ::read(fd, buf, sizeof buf);
    if (n < 0) {
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

void WriteFileAtomic(const std::string& name, const std::string& bytes) {
  if (name.empty()) throw RuntimeError(errBadFileName);
  const std::string tmp = name + ".new";
  const int fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) throw RuntimeError::FromErrno(errno);
  try {
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
  if (std::rename(tmp.c_str(), name.c_str()) != 0) {
    const int err = errno;
    ::unlink(tmp.c_str());
    throw RuntimeError::FromErrno(err);
  }
}

void WriteFile(const std::string& name, const std::string& bytes) {
  if (name.empty()) throw RuntimeError(errBadFileName);
  const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) throw RuntimeError::FromErrno(errno);
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

}  // namespace sw
