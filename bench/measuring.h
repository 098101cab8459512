// Shared by the benchmarks: the median of their times, and the option for the number of rows.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessaria::bench {

inline double Median(std::vector<double> values) {
  const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Takes "--rows=N" off the arguments; `otherwise` when it is not among them.
inline int TakeRows(int& argc, char** argv, int otherwise) {
  constexpr std::string_view kOption = "--rows=";
  const auto isRows = [&](const char* argument) {
    return std::string_view(argument).starts_with(kOption);
  };
  char** const option = std::find_if(argv, argv + argc, isRows);
  if (option == argv + argc) return otherwise;
  const int rows = std::stoi(*option + kOption.size());
  std::copy(option + 1, argv + argc, option);
  --argc;
  return rows;
}

}  // namespace tessaria::bench
