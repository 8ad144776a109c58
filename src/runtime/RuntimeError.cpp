#include "runtime/RuntimeError.h"

#include <cerrno>

namespace sw {

RuntimeError::RuntimeError(int number) : RuntimeError(number, DescriptionOf(number)) {}

RuntimeError::RuntimeError(int number, const std::string& description)
    : std::runtime_error(description), number_(number), description_(description) {}

std::string RuntimeError::DescriptionOf(int number) {
  switch (number) {
    case 3: return "Return without GoSub";
    case 5: return "Invalid procedure call or argument";
    case 6: return "Overflow";
    case 7: return "Out of memory";
    case 9: return "Subscript out of range";
    case 11: return "Division by zero";
    case 13: return "Type mismatch";
    case 52: return "Bad file name or number";
    case 53: return "File not found";
    case 54: return "Bad file mode";
    case 55: return "File already open";
    case 57: return "Device I/O error";
    case 58: return "File already exists";
    case 61: return "Disk full";
    case 62: return "Input past end of file";
    case 67: return "Too many files";
    case 68: return "Device unavailable";
    case 70: return "Permission denied";
    case 71: return "Disk not ready";
    case 75: return "Path/File access error";
    case 76: return "Path not found";
    default: return "Application-defined or object-defined error";
  }
}

RuntimeError RuntimeError::FromErrno(int err) {
  switch (err) {
    case ENOENT: return RuntimeError(errFileNotFound);
    case ENOTDIR: return RuntimeError(errPathNotFound);
    case EACCES:
    case EPERM:
    case EROFS: return RuntimeError(errPermission);
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return RuntimeError(errDiskFull);  // a file-size limit is a full disk to the player
    case EIO: return RuntimeError(errDeviceIO);
    case ENAMETOOLONG:
    case EINVAL: return RuntimeError(errBadFileName);
    case EMFILE:
    case ENFILE: return RuntimeError(67);
    case ENOMEM: return RuntimeError(7);
    default: return RuntimeError(errPathFileAccess);
  }
}

}  // namespace sw
