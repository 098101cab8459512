// Round.
#include <gtest/gtest.h>

#include <limits>

#include "tessaria/format.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(Rounding, GoesToEvenOnTheDigitsOfTheText) {
  const struct {
    double Value;
    Long Decimals;
    double Result;
  } rows[] = {{0, 0, 0},
              {0.5, 0, 0},
              {1.5, 0, 2},
              {2.5, 0, 2},
              {-0.5, 0, 0},
              {-1.5, 0, -2},
              {-2.5, 0, -2},
              {2.675, 2, 2.68},
              {2.665, 2, 2.66},
              {1.005, 2, 1},
              {1.015, 2, 1.02},
              {0.125, 2, 0.12},
              {0.135, 2, 0.14},
              {2.345, 2, 2.34},
              {1234.5678, 2, 1234.57},
              {1234.5678, 9, 1234.5678},
              {0.1 + 0.2, 1, 0.3},
              {9.995, 2, 10},
              {99.5, 0, 100},
              {1E20, 2, 1E20},
              {1E-10, 5, 0},
              {12.5 * 100, 0, 1250},
              {0.05, 1, 0},
              {0.15, 1, 0.2},
              {5, 100, 5},
              {1.0 / 3, 15, 0.333333333333333},
              {1.0 / 3, 20, 1.0 / 3},
              {123456789012345.67, 1, 123456789012345.7},
              {1234567890123456789.0, 0, 1234567890123456789.0}};
  for (const auto& row : rows) {
    EXPECT_EQ(Round(row.Value, row.Decimals), row.Result) << row.Value << " " << row.Decimals;
  }
  EXPECT_EQ(Round(3.5), 4);
}

TEST(Rounding, Errors) {
  EXPECT_HOST_ERROR(Round(1.5, -1), errors::InvalidArgument);
  EXPECT_HOST_ERROR(Round(std::numeric_limits<double>::infinity(), 2), errors::Overflow);
  EXPECT_HOST_ERROR(Round(std::numeric_limits<double>::quiet_NaN(), 2), errors::Overflow);
}

}  // namespace
}  // namespace tessaria
