// Signals of the hosts' own classes, which a program's handlers are connected to.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "tests/layout/source_tree.h"

namespace layout {
namespace {

using testing::ElementsAre;

// tests/qt/signals_test.cpp and record_form_test.cpp emit each of these with a handler that throws.
// What does not concern programs uses plain callbacks instead.
TEST(Signals, OnlyTheClassesForProgramsHaveThem) {
  const std::regex section(R"(\n\s*(signals|Q_SIGNALS)\s*:)");
  std::vector<std::string> found;
  for (const auto& file : FilesEndingIn({".h", ".cpp"}))
    if ((file.starts_with("hosts/") || file.starts_with("include/")) &&
        std::regex_search(ReadText(file), section))
      found.push_back(file);
  EXPECT_THAT(found,
              ElementsAre("include/tessaria/qt/adodc.h", "include/tessaria/qt/host.h",
                          "include/tessaria/qt/item_grid.h", "include/tessaria/qt/record_form.h",
                          "include/tessaria/qt/recordset_model.h", "include/tessaria/qt/tstext.h"));
}

}  // namespace
}  // namespace layout
