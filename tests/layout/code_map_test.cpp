// docs/code-map.md has one line for each file, and only for files that exist.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <regex>
#include <sstream>

#include "tests/layout/source_tree.h"

namespace layout {
namespace {

using testing::IsEmpty;

// "a/b.{h,cpp}" gives "a/b.h" and "a/b.cpp".
std::vector<std::string> ExpandBraces(const std::string& path) {
  const auto open = path.find('{');
  const auto close = path.find('}');
  if (open == std::string::npos || close == std::string::npos) return {path};
  std::istringstream choices(path.substr(open + 1, close - open - 1));
  std::vector<std::string> paths;
  for (std::string choice; std::getline(choices, choice, ',');) {
    paths.push_back(path.substr(0, open) + choice + path.substr(close + 1));
  }
  return paths;
}

// The paths of the lines of the form "- `path`: what it is for".
std::vector<std::string> MappedFiles() {
  static const std::regex entry(R"(^- `([^`]+)`: \S.*)");
  std::vector<std::string> files;
  for (const auto& line : ReadLines("docs/code-map.md")) {
    std::smatch match;
    if (!std::regex_match(line, match, entry)) continue;
    for (auto& path : ExpandBraces(match[1])) files.push_back(std::move(path));
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::string> SourceFiles() {
  return FilesEndingIn({".h", ".cpp", ".cmake", ".sh", ".sql", ".ui"});
}

TEST(CodeMap, ListsEverySourceFile) {
  const auto mapped = MappedFiles();
  std::vector<std::string> missing;
  std::ranges::copy_if(SourceFiles(), std::back_inserter(missing), [&](const std::string& file) {
    return !std::binary_search(mapped.begin(), mapped.end(), file);
  });
  EXPECT_THAT(missing, IsEmpty());
}

TEST(CodeMap, ListsOnlyFilesThatExist) {
  auto mapped = MappedFiles();
  std::erase_if(mapped, [](const std::string& file) { return Exists(file); });
  EXPECT_THAT(mapped, IsEmpty());
}

TEST(CodeMap, ListsAFileOnce) {
  auto mapped = MappedFiles();
  EXPECT_EQ(std::adjacent_find(mapped.begin(), mapped.end()), mapped.end());
}

}  // namespace
}  // namespace layout
