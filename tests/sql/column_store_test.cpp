#include "hosts/sql/values/column_store.h"

#include <gtest/gtest.h>

#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria::sql {
namespace {

Columns TwoColumns() {
  Column number;
  number.storage = Storage::Int32;
  Column text;
  text.storage = Storage::Text;
  return {number, text};
}

TEST(ColumnStore, KeepsCellsAcrossChunks) {
  ColumnStore store(TwoColumns());
  constexpr std::uint32_t kRows = 10'000;
  for (std::uint32_t row = 0; row < kRows; ++row) {
    store.AppendFixed(0, static_cast<std::int32_t>(row));
    row % 7 == 3 ? store.AppendNull(1) : store.AppendText(1, FromUtf8(std::to_string(row)));
    store.EndRows(1);
  }
  ASSERT_EQ(store.RowCount(), kRows);
  for (std::uint32_t row = 0; row < kRows; ++row) {
    ASSERT_EQ(store.Fixed<std::int32_t>(row, 0), static_cast<std::int32_t>(row));
    ASSERT_EQ(store.IsNull(row, 1), row % 7 == 3);
    ASSERT_EQ(store.Text(row, 1), row % 7 == 3 ? "" : std::to_string(row));
  }
}

TEST(ColumnStore, KeepsEveryCharacter) {
  const StringView texts[] = {u"", u"ação", u"€ 10", u"\U0001F600", u"a\0b"};
  ColumnStore store(TwoColumns());
  for (const StringView text : texts) store.AppendText(1, text);
  for (std::uint32_t i = 0; i < std::size(texts); ++i) {
    EXPECT_EQ(FromUtf8(store.Text(i, 1)), texts[i]);
  }
}

TEST(ColumnStore, KeepsTextsThatTogetherAreLong) {
  ColumnStore store(TwoColumns());
  const auto text = [](std::uint32_t row) { return std::string(row % 200, 'a' + row % 26); };
  constexpr std::uint32_t kRows = 3000;
  for (std::uint32_t row = 0; row < kRows; ++row) {
    row % 50 == 7 ? store.AppendNull(1) : store.AppendText(1, FromUtf8(text(row)));
  }
  for (std::uint32_t row = 0; row < kRows; ++row) {
    ASSERT_EQ(store.Text(row, 1), row % 50 == 7 ? "" : text(row));
  }
}

TEST(ColumnStore, TakesLittleMoreThanTheData) {
  ColumnStore store(TwoColumns());
  std::size_t data = 0;
  for (int row = 0; row < 100'000; ++row) {
    const String text = u"Cliente numero " + FromUtf8(std::to_string(row));
    store.AppendFixed(0, row);
    store.AppendText(1, text);
    store.EndRows(1);
    data += sizeof row + text.size();
  }
  EXPECT_LT(store.Bytes(), data * 3 / 2);
}

}  // namespace
}  // namespace tessaria::sql
