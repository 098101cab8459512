// The repository's files, as the tests of its rules read them.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace layout {

/// One `#include` line.
struct Include {
  std::string file;    ///< where it stands, from the root
  int line = 0;        ///< from 1
  std::string target;  ///< what stands between the marks
  bool angled = false;

  /// "file:line includes target", for messages.
  std::string Describe() const;
};

/// All files of the repository, from its root with "/"; build folders and hidden ones left out.
std::vector<std::string> AllFiles();

/// Those of AllFiles whose name ends in one of the endings.
std::vector<std::string> FilesEndingIn(const std::set<std::string>& endings);

/// The whole text of a file. Throws std::runtime_error when it cannot be read.
std::string ReadText(const std::string& file);
std::vector<std::string> ReadLines(const std::string& file);

/// Whether the path, from the root, leads to something.
bool Exists(const std::string& path);

/// The `#include` lines of all C++ files, sorted by file. They are read once.
const std::vector<Include>& AllIncludes();

}  // namespace layout
