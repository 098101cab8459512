// The tab "Browse" of the property page: the definition of the lookup.
#pragma once

#include <vector>

#include "propertypage/page.h"

namespace tessaria::propertypage {

/// Edits the control's own definition: each text is stored in it as it is typed.
class BrowseTab {
 public:
  /// Both live as long as the page.
  explicit BrowseTab(Page& page);
  BrowseTab(const BrowseTab&) = delete;
  BrowseTab& operator=(const BrowseTab&) = delete;

  /// Takes the control's definition, and moves the texts of its flat properties into it.
  void Take(const host::TsTextWidget& control);
  /// Writes the texts into the definition, and empties the flat properties.
  void Apply(host::TsTextWidget& control);
  /// The tab has come to the front.
  void Entered();
  /// Takes over the definition of a sibling, which looks at the same table from its other end.
  void CopiaIrmao(const tessaria::Browse& sibling);

 private:
  void Connect();
  void MigraBrowse();
  void Typed(std::size_t field);
  void Clear();

  Page& page_;
  std::vector<String> flat_;  // the texts of the flat properties, until they have been moved
};

}  // namespace tessaria::propertypage
