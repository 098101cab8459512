// A field of a form as its settings describe it.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "apps/check/finding.h"
#include "apps/check/form_file.h"

#include <tessaria/browse_definition.h>
#include <tessaria/pesquisa_definition.h>
#include <tessaria/variant.h>

namespace tessaria::formcheck {

class Field {
 public:
  explicit Field(const Widget& widget) : widget_(&widget) {}

  /// Reads the settings; what cannot be read is reported and left out.
  void Read(std::vector<Finding>& findings);

  const String& Name() const { return widget_->name; }
  /// Of the setting ("Mascara", "Browse.BrwWhere"), or of the field when it has none of that key.
  int LineOf(StringView key) const;
  bool Has(StringView key) const;
  String TextOf(StringView key) const;
  Long NumberOf(StringView key, Long byDefault) const;

  /// The lookup and the searches; null when the settings hold none.
  const std::shared_ptr<Browse>& Lookup() const { return lookup_; }
  const std::shared_ptr<Pesquisa>& Searches() const { return searches_; }

 private:
  void ReadLine(const Text& line, std::vector<Finding>& findings);
  void ReadDefinitions();
  bool IsKnown(const String& key, int line, std::vector<Finding>& findings) const;
  Finding About(int line, const char* kind, const String& message) const;

  const Widget* widget_;
  struct Setting {
    Variant value;
    int line;
  };
  std::map<String, Setting> settings_;  ///< by their keys in small letters
  std::vector<String> readable_;        ///< the lines that can be read
  std::shared_ptr<Browse> lookup_;
  std::shared_ptr<Pesquisa> searches_;
};

}  // namespace tessaria::formcheck
