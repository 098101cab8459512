// The repository's files, for the tests of its rules.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace layout {

/// One `#include` line.
struct Include {
  std::string file;    ///< the file with the line, from the root
  int line = 0;        ///< from 1
  std::string target;  ///< the text between the quotes or brackets
  bool angled = false;

  /// "file:line includes target", for messages.
  std::string Describe() const;
};

/// All files of the repository, from its root with "/"; build folders and hidden ones left out.
std::vector<std::string> AllFiles();

/// The files of AllFiles whose names end in one of the endings.
std::vector<std::string> FilesEndingIn(const std::set<std::string>& endings);

/// The whole text of a file. Throws std::runtime_error when it cannot be read.
std::string ReadText(const std::string& file);
std::vector<std::string> ReadLines(const std::string& file);

/// Whether the path, from the root, exists.
bool Exists(const std::string& path);

/// The `#include` lines of all C++ files, sorted by file. They are read once.
const std::vector<Include>& AllIncludes();

}  // namespace layout
