// Drives, folders and files that exist only in memory.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria::memory {

/// Names are compared without regard to case; "\" divides the parts of a path. A drive is named
/// by an entry that begins with its letter and a colon: "c: [SISTEMA]", "z: [\\servidor\dados]".
class TESSARIA_MEMORY_API FileSystem {
 public:
  enum class DriveState { Ready, NotReady };
  /// Adds a drive; one that is not ready raises errors where its folders are read.
  void AddDrive(const String& entry, DriveState state = DriveState::Ready);
  /// Lists that were filled before keep the entry.
  void RemoveDrive(const String& entry);
  /// Creates the folder and all folders above it.
  void AddFolder(const String& path);
  /// Creates the file and its folder.
  void AddFile(const String& path);

  /// The entries, in order of creation.
  std::vector<String> Drives() const;
  /// The entry of the drive that a path is on.
  std::optional<String> DriveOf(const String& path) const;
  /// Error 68 when there is no such drive.
  bool DriveReady(const String& drive) const;

  /// The folder of a path or of a drive's entry as it was created, with a separator at the end only
  /// for a drive's root. Error 76 when there is none, or its drive is not ready.
  String RequireFolder(const String& path) const;
  /// The folders right below, by name. Like all lists below, it is in order of name.
  std::vector<String> FoldersIn(const String& path) const;
  /// The files that match one of the patterns, which semicolons divide.
  std::vector<String> FilesIn(const String& path, const String& patterns) const;
  /// The first file that a path with wildcards matches; "" for none.
  String Dir(const String& pattern) const;

 private:
  struct Folder {
    String Path;
    std::map<String, String> Files;  ///< name by name in lower case
  };
  const Folder* Find(const String& path) const;

  std::vector<std::pair<String, DriveState>> drives_;
  std::map<String, Folder> folders_;  ///< by path in lower case
};

/// Whether a file's name matches a pattern of "*" and "?"; "*.*" matches every name.
TESSARIA_MEMORY_API bool MatchesPattern(StringView name, StringView pattern);

}  // namespace tessaria::memory
