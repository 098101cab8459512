// The documents agree with the tree and with each other.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include "tests/layout/source_tree.h"

namespace layout {
namespace {

using testing::IsEmpty;

std::vector<std::string> MatchesOf(const std::string& text, const std::string& pattern) {
  const std::regex regex(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator it(text.begin(), text.end(), regex), end; it != end; ++it) {
    found.push_back((*it)[1]);
  }
  return found;
}

// The targets of links and pictures that point into the repository. Code has none: there a lambda
// looks like one.
std::vector<std::string> LocalLinks(const std::string& file) {
  const std::string text = std::regex_replace(ReadText(file), std::regex(R"(```[^`]*```)"), "");
  auto links = MatchesOf(text, R"(\]\(([^)#\s]+)[^)]*\))");
  std::erase_if(links, [](const std::string& link) {
    return link.find("://") != std::string::npos || link.starts_with("mailto:");
  });
  return links;
}

// The fenced blocks, which contain the commands for the reader.
std::vector<std::string> CodeBlocks(const std::string& file) {
  return MatchesOf(ReadText(file), R"(```\w*\n([^`]*)```)");
}

long Headings(const std::string& file) {
  const auto lines = ReadLines(file);
  return std::count_if(lines.begin(), lines.end(),
                       [](const std::string& line) { return line.starts_with("## "); });
}

TEST(Documents, LinksHaveTargets) {
  for (const auto& file : FilesEndingIn({".md"})) {
    const auto folder = std::filesystem::path(file).parent_path();
    for (const auto& link : LocalLinks(file)) {
      EXPECT_TRUE(Exists((folder / link).lexically_normal().generic_string()))
          << file << " links to " << link;
    }
  }
}

TEST(Documents, TheReadmeExistsInBothLanguagesWithTheSameSectionsAndCommands) {
  EXPECT_EQ(Headings("README.md"), Headings("README.pt-BR.md"));
  EXPECT_EQ(CodeBlocks("README.md"), CodeBlocks("README.pt-BR.md"));
}

TEST(Documents, TheChangelogHasAnUnreleasedSection) {
  EXPECT_NE(ReadText("CHANGELOG.md").find("\n## [Unreleased]\n"), std::string::npos);
}

TEST(Documents, NothingIsLeftForLater) {
  // Put together here, so that this file passes its own test.
  const std::regex words("\\b(" + std::string("TO") + "DO|" + "FIX" + "ME)\\b");
  std::vector<std::string> found;
  for (const auto& file : FilesEndingIn({".h", ".cpp", ".cmake", ".sh", ".sql", ".md", ".txt"})) {
    int number = 0;
    for (const auto& line : ReadLines(file)) {
      ++number;
      if (std::regex_search(line, words)) found.push_back(file + ":" + std::to_string(number));
    }
  }
  EXPECT_THAT(found, IsEmpty());
}

}  // namespace
}  // namespace layout
