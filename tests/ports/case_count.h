// Prints at the end of a run how many cases of the port contracts a host went through, so that a
// gap between hosts shows.
#pragma once

#include <gtest/gtest.h>

#include <iostream>
#include <string>

namespace tessaria::contract {

/// Registered once in a test program: `const bool counted = CountCases("memory");`.
class CaseCount final : public testing::Environment {
 public:
  explicit CaseCount(std::string host) : host_(std::move(host)) {}

  void TearDown() override {
    const auto& run = *testing::UnitTest::GetInstance();
    for (int i = 0; i < run.total_test_suite_count(); ++i) Print(*run.GetTestSuite(i));
  }

 private:
  void Print(const testing::TestSuite& suite) const {
    const std::string name = suite.name();
    const auto end = name.rfind("Contract");
    if (end == std::string::npos || end + 8 != name.size()) return;
    std::cout << "host " << host_ << ": " << name << ": " << suite.successful_test_count()
              << " passed, " << suite.failed_test_count() << " failed, "
              << suite.skipped_test_count() << " skipped, "
              << suite.total_test_count() - suite.test_to_run_count() << " not asked for\n";
  }

  std::string host_;
};

inline bool CountCases(const char* host) {
  testing::AddGlobalTestEnvironment(new CaseCount(host));
  return true;
}

}  // namespace tessaria::contract
