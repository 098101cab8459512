// Splitting a path for the folder picker.
#include "pickers/path_split.h"

#include <gtest/gtest.h>

#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

enum class Mode { Folder, File };

/// Written with "\"; each row is also tested with "/".
struct Row {
  Mode How;
  const char16_t* Path;
  const char16_t* Folder;
  const char16_t* File;
};

constexpr Row rows[] = {
    {Mode::Folder, u"C:\\Dados", u"C:\\Dados", u""},
    {Mode::Folder, u"C:\\Dados\\a.txt", u"C:\\Dados\\a.txt", u""},
    {Mode::Folder, u"a.txt", u"a.txt", u""},
    {Mode::File, u"C:\\Dados", u"C:\\Dados", u""},
    {Mode::File, u"C:\\Dados\\a.txt", u"C:\\Dados", u"a.txt"},
    {Mode::File, u"C:\\Dados\\a.b.txt", u"C:\\Dados", u"a.b.txt"},
    {Mode::File, u"C:\\a.txt", u"C:", u"a.txt"},
    {Mode::File, u"\\a.txt", u"", u"a.txt"},
    {Mode::File, u"LEIAME", u"LEIAME", u""},
    // A dot in a folder's name cuts the path there, and the rest becomes the file.
    {Mode::File, u"C:\\Dados.2017", u"C:", u"Dados.2017"},
    {Mode::File, u"C:\\Dados.2017\\Contas", u"C:", u"Dados.2017\\Contas"},
    {Mode::File, u"C:\\Dados\\", u"C:\\Dados\\", u""},
    {Mode::File, u"", u"", u""},
};

TEST(PathSplit, CutsAtTheSeparatorBeforeTheLastPoint) {
  for (const char16_t separator : {u'\\', u'/'}) {
    const auto on = [&](StringView text) { return Replace(text, u"\\", String(1, separator)); };
    for (const Row& row : rows) {
      const auto [folder, file] = SplitForPicker(on(row.Path), row.How == Mode::File, separator);
      EXPECT_EQ(folder, on(row.Folder)) << ToUtf8(row.Path);
      EXPECT_EQ(file, on(row.File)) << ToUtf8(row.Path);
    }
  }
}

TEST(PathSplit, TheOtherSystemsSeparatorIsPartOfAName) {
  const auto [folder, file] = SplitForPicker(u"/home/ana\\b.txt", true, u'/');
  EXPECT_EQ(folder, u"/home");
  EXPECT_EQ(file, u"ana\\b.txt");
}

TEST(PathSplit, APointWithoutASeparatorBeforeItIsAnInvalidArgument) {
  for (const StringView name : {u"a.txt", u".", u"a.b\\c"})
    EXPECT_HOST_ERROR(SplitForPicker(String(name), true, u'\\'), errors::InvalidArgument);
}

}  // namespace
}  // namespace tessaria::test
