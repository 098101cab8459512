// A program whose locale writes numbers with a comma.
#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace tessaria::test {

/// Within a scope, the locales of C and of the streams use a comma as the decimal point. That of C
/// does so only when the machine has a Brazilian locale.
class CommaLocale {
 public:
  CommaLocale() : ofC_(std::setlocale(LC_ALL, nullptr)), ofStreams_(std::locale()) {
    std::locale::global(std::locale(ofStreams_, new Comma));
    if (!std::setlocale(LC_ALL, "pt_BR.UTF-8")) std::setlocale(LC_ALL, "C");
  }
  ~CommaLocale() {
    std::locale::global(ofStreams_);
    std::setlocale(LC_ALL, ofC_.c_str());
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

 private:
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  std::string ofC_;
  std::locale ofStreams_;
};

}  // namespace tessaria::test
