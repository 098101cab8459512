// The form without a mistake, and forms with one planted into it.
#pragma once

#include <string>
#include <vector>

#include "apps/check/options.h"

namespace tessaria::formcheck::test {

/// The path of the form without a mistake.
std::string CleanPath();

/// A file with the clean form in which one text, which occurs once, is replaced by another. It is
/// removed with the object.
class PlantedForm {
 public:
  PlantedForm(const std::string& text, const std::string& replacement);
  /// With these contents.
  explicit PlantedForm(const std::string& contents);
  PlantedForm(const PlantedForm&) = delete;
  PlantedForm& operator=(const PlantedForm&) = delete;
  ~PlantedForm();

  const std::string& Path() const { return path_; }
  /// The line of a text, from 1; of the first when it occurs more than once.
  int LineOf(const std::string& text) const;

 private:
  std::string path_, contents_;
};

struct Report {
  int code = 0;
  std::string out, error;
};
Report Check(const Options& options);
Report Check(const PlantedForm& form);

}  // namespace tessaria::formcheck::test
