#pragma once
// Files in the current directory, by their bare names. A failure raises the
// run-time error that matches it (53 for a missing file, 61 for a full disk ...).
#include <sys/types.h>

#include <string>

namespace sw {

// The whole file as bytes ("Open ... For Binary", read its length); a name that is
// not a regular file raises 75.
std::string ReadWholeFile(const std::string& name);
// The whole of one of the game's own data files (options, webmaster lists): a
// name that is not a regular file raises 75, and a file too big to be one
// (over 16 MiB) raises 7 ("Out of memory") without being read.
std::string ReadDataFile(const std::string& name);
// Replaces the file with the bytes, crash-safe: the bytes go to a temporary of
// their own beside it, are flushed to disk, then renamed over the old file (and
// the directory flushed), so the old file stays whole until the new one is
// complete. A symbolic link is written through to its target; an existing file
// keeps its mode, a new one gets newMode; a read-only file raises 70 and is left
// as it is. A file-size limit is reported as a full disk (61).
void WriteFileAtomic(const std::string& name, const std::string& bytes, mode_t newMode = 0644);
// Copies a file that failed to load to "<name>.bad" (crash-safe, readable by
// its owner only), replacing an older copy, so that what it held can be recovered.
void KeepAside(const std::string& name);
// Appends or truncates-and-writes in place (used by the debug log and the
// short-lived temporary files).
void WriteFile(const std::string& name, const std::string& bytes);
// "Kill": deletes a file; a missing file raises 53.
void DeleteFile(const std::string& name);
bool FileExists(const std::string& name);

}  // namespace sw
