#include "tests/layout/source_tree.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace layout {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = TESSARIA_SOURCE_DIR;

bool IsForeign(const fs::path& folder) {
  const std::string name = folder.filename().string();
  return name == "build" || (name.front() == '.' && name != ".ci") ||
         fs::exists(folder / "CMakeCache.txt");
}

}  // namespace

std::string Include::Describe() const {
  return file + ":" + std::to_string(line) + " includes " + target;
}

std::vector<std::string> AllFiles() {
  std::vector<std::string> files;
  for (auto it = fs::recursive_directory_iterator(kRoot); it != fs::end(it); ++it) {
    if (it->is_directory() && IsForeign(it->path())) it.disable_recursion_pending();
    if (it->is_regular_file()) files.push_back(fs::relative(*it, kRoot).generic_string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::string> FilesEndingIn(const std::set<std::string>& endings) {
  auto files = AllFiles();
  std::erase_if(files, [&](const std::string& file) {
    return !endings.contains(fs::path(file).extension().string());
  });
  return files;
}

std::string ReadText(const std::string& file) {
  std::ifstream stream(kRoot / file, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + file);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

std::vector<std::string> ReadLines(const std::string& file) {
  std::istringstream stream(ReadText(file));
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

bool Exists(const std::string& path) { return fs::exists(kRoot / path); }

namespace {

std::vector<Include> ReadIncludes() {
  static const std::regex pattern(R"re(^\s*#\s*include\s*(["<])([^">]+)[">])re");
  std::vector<Include> includes;
  for (const auto& file : FilesEndingIn({".h", ".cpp"})) {
    int number = 0;
    for (const auto& line : ReadLines(file)) {
      ++number;
      std::smatch match;
      if (std::regex_search(line, match, pattern)) {
        includes.push_back({file, number, match[2], match[1] == "<"});
      }
    }
  }
  return includes;
}

}  // namespace

const std::vector<Include>& AllIncludes() {
  static const std::vector<Include> includes = ReadIncludes();
  return includes;
}

}  // namespace layout
