// A field of a form file, with its settings as the control reads them.
#pragma once

#include <memory>

#include "apps/check/form_file.h"
#include "tessaria/browse_definition.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/tstext_interface.h"

namespace tessaria::formcheck {

/// One readable line of the settings.
struct Setting {
  int line = 0;
  String key;  ///< with its object: "Browse.BrwCampo"
  Variant value;
};

struct Field {
  const FormWidget* widget = nullptr;
  std::vector<Setting> settings;
  std::shared_ptr<Browse> browse;      ///< null when the file holds none
  std::shared_ptr<Pesquisa> pesquisa;  ///< likewise

  const String& Name() const { return widget->name; }
  /// Null when there is no such line.
  const Setting* Find(StringView key) const;
  /// The line of a setting; that of the widget when there is none.
  int LineOf(StringView key) const;
  String Text(StringView key) const;
  Long Number(StringView key, Long byDefault) const;
  bool Flag(StringView key, bool byDefault) const;
  TipoControle Kind() const;
  bool LooksUp() const;
  String PromptChar() const;

  /// A text of the lookup: the field's own, or else that of the definition.
  String Lookup(StringView key) const;
  /// The line of that text.
  int LookupLine(StringView key) const;
  /// What stands after "From".
  String From() const;
};

/// The names of the eight texts of a lookup.
inline constexpr StringView kLookupTexts[] = {u"BrwTitulo",     u"BrowseTable",    u"BrwCampo",
                                              u"BrwCampoIrmao", u"BrwCampoOutros", u"BrwGroupBy",
                                              u"BrwLeftJoin",   u"BrwWhere"};

}  // namespace tessaria::formcheck
