// The documents agree with the tree and with each other.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
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

// The fenced blocks, which contain the commands for the reader.
std::vector<std::string> CodeBlocks(const std::string& file) {
  return MatchesOf(ReadText(file), R"(```\w*\n([^`]*)```)");
}

long Headings(const std::string& file) {
  const auto lines = ReadLines(file);
  return std::count_if(lines.begin(), lines.end(),
                       [](const std::string& line) { return line.starts_with("## "); });
}

TEST(Documents, TheReadmeExistsInBothLanguagesWithTheSameSectionsAndCommands) {
  EXPECT_EQ(Headings("README.md"), Headings("README.pt-BR.md"));
  EXPECT_EQ(CodeBlocks("README.md"), CodeBlocks("README.pt-BR.md"));
}

TEST(Documents, EachOddityThatIsKeptHasATest) {
  const std::string page = ReadText("docs/oddities.md");
  const auto tests = MatchesOf(page, R"(<!-- test: (\w+\.\w+) -->)");
  EXPECT_EQ(tests.size(), MatchesOf(page, R"(\n(- \*\*))").size());
  EXPECT_EQ(tests, MatchesOf(ReadText("docs/oddities.pt-BR.md"), R"(<!-- test: (\w+\.\w+) -->)"));
  std::string sources;
  for (const auto& file : FilesEndingIn({".cpp"}))
    if (file.starts_with("tests/")) sources += ReadText(file);
  for (const auto& test : tests) {
    const auto point = test.find('.');
    const std::string written = '(' + test.substr(0, point) + ", " + test.substr(point + 1) + ')';
    EXPECT_NE(sources.find(written), std::string::npos) << "no test " << test;
  }
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
