// The size of the library's folders: a large one is divided into rooms.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "tests/layout/source_tree.h"

namespace layout {
namespace {

constexpr int kMostFiles = 50;

// By folder, without the files of folders inside it.
std::map<std::string, int> CountFiles() {
  static const std::set<std::string> others = {"apps", "bench", "tests"};
  std::map<std::string, int> counts;
  for (const auto& file : FilesEndingIn({".h", ".cpp"}))
    if (!others.contains(file.substr(0, file.find('/')))) ++counts[file.substr(0, file.rfind('/'))];
  return counts;
}

TEST(Folders, OfTheLibraryHaveFiftyFilesAtMost) {
  const auto counts = CountFiles();
  EXPECT_TRUE(counts.contains("control/storage"));
  for (const auto& [folder, count] : counts) EXPECT_LE(count, kMostFiles) << folder;
}

}  // namespace
}  // namespace layout
