#include "tests/check/planted_form.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

#include "apps/check/check_forms.h"

namespace tessaria::formcheck::test {
namespace {

std::string Contents(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path + " cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string CleanWith(const std::string& text, const std::string& replacement) {
  std::string form = Contents(CleanPath());
  const std::size_t at = form.find(text);
  if (at == std::string::npos || form.find(text, at + 1) != std::string::npos)
    throw std::runtime_error("not once in the clean form: " + text);
  return form.replace(at, text.size(), replacement);
}

std::string NewPath() {
  static int count = 0;
  const std::string name =
      "tessaria-check-" + std::to_string(getpid()) + "-" + std::to_string(++count) + ".ui";
  return (std::filesystem::temp_directory_path() / name).string();
}

}  // namespace

std::string CleanPath() { return std::string(TESSARIA_CHECK_FORMS) + "/limpo.ui"; }

PlantedForm::PlantedForm(const std::string& text, const std::string& replacement)
    : PlantedForm(CleanWith(text, replacement)) {}

PlantedForm::PlantedForm(const std::string& contents) : path_(NewPath()), contents_(contents) {
  std::ofstream(path_) << contents_;
}

PlantedForm::~PlantedForm() {
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

int PlantedForm::LineOf(const std::string& text) const {
  const std::size_t at = contents_.find(text);
  if (at == std::string::npos) throw std::runtime_error("not in the form: " + text);
  const auto start = contents_.begin();
  return 1 + static_cast<int>(std::count(start, start + static_cast<std::ptrdiff_t>(at), '\n'));
}

Report Check(const Options& options) {
  std::ostringstream out, error;
  const int code = CheckForms(options, out, error);
  return {code, out.str(), error.str()};
}

Report Check(const PlantedForm& form) {
  Options options;
  options.files = {form.Path()};
  return Check(options);
}

}  // namespace tessaria::formcheck::test
