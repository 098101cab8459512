// Val: the number at the start of a text.
#include <gtest/gtest.h>

#include <limits>

#include "tessaria/conversion.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(Vals, ReadTheStartOfAText) {
  const struct {
    StringView Text;
    double Value;
  } rows[] = {
      {u"", 0},
      {u"abc", 0},
      {u"12", 12},
      {u"12abc", 12},
      {u"abc12", 0},
      {u"1.5", 1.5},
      {u"1,5", 1},  // the comma is not a decimal mark here
      {u"1.5.3", 1.5},
      {u".5", 0.5},
      {u"5.", 5},
      {u".", 0},
      {u"-", 0},
      {u"-7", -7},
      {u"+7", 7},
      {u"- 7", -7},
      {u"--7", 0},
      {u"  12  ", 12},
      {u"1 2\t3\n4", 1234},  // blanks do not count, not even between digits
      {u"12/__/____", 12},
      {u"1615 198th Street", 1615198},
      {u"4_", 4},
      {u"1E3", 1000},
      {u"1D3", 1000},
      {u"1e-2x", 0.01},
      {u"1E", 1},
      {u"1E+", 1},
      {u"&H1F", 31},
      {u"& H1F", 31},
      {u"&h10", 16},
      {u"&O17", 15},
      {u"&17", 15},
      {u"&HFFFF", -1},  // 16 bits are signed
      {u"&HFFFF&", 65535},
      {u"&H8000", -32768},
      {u"&H10000", 65536},
      {u"&HFFFFFFFF", -1},
      {u"&HZ", 0},
      {u"&", 0},
      {u"&O9", 0},
      {u"1E-400", 0},
  };
  for (const auto& row : rows) EXPECT_EQ(Val(row.Text), row.Value) << ToUtf8(row.Text);
}

TEST(Vals, NeverOverflow) {
  EXPECT_EQ(Val(u"1E400"), std::numeric_limits<double>::max());
  EXPECT_EQ(Val(u"-1E99999999999"), -std::numeric_limits<double>::max());
  EXPECT_EQ(Val(String(500, u'9')), std::numeric_limits<double>::max());
}

}  // namespace
}  // namespace tessaria
