// The tab "Pesquisa" of the property page: the searches of a list, one at a time.
#pragma once

#include "propertypage/page.h"

namespace tessaria::propertypage {

/// Edits the control's own list of searches: what is changed here is changed at once.
class SearchesTab {
 public:
  /// Both live as long as the page.
  explicit SearchesTab(Page& page);
  SearchesTab(const SearchesTab&) = delete;
  SearchesTab& operator=(const SearchesTab&) = delete;

  /// Shows the first search, or none.
  void ShowFirst();

 private:
  void Connect();
  void MostraPesquisa();
  void SalvaPesquisa();
  void SaveAndTell();
  void Previous();
  void Next();
  void Insert();
  void Remove();
  String FreeKey(Long position) const;
  bool HasItem() const { return PosPesquisa > 0 && PosPesquisa <= Count(); }
  Long Count() const { return page_.pesquisa->Count(); }

  Page& page_;
  Long PosPesquisa = 0;  // from 1; 0 for an empty list
};

}  // namespace tessaria::propertypage
