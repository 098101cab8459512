#include "apps/demo/lookups.h"

#include "apps/demo/field_helpers.h"
#include "tessaria/browse_definition.h"
#include "tessaria/conversion.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/tstext.h"

namespace tessaria::demo {
namespace {

String otherFields(const Lookup& lookup) {
  String fields;
  for (std::size_t i = 2; i < lookup.columns.size(); ++i) {
    if (!fields.empty()) fields += u", ";
    fields += lookup.columns[i].field;
  }
  return fields;
}

void addColumn(ListaColunas& columns, const ListColumn& column) {
  columns.Add(String(column.field), String(column.caption), String(column.format), column.width,
              column.width > 0);
}

/// `own` is the position of the field's own column among the first two.
void define(Browse& definition, const Lookup& lookup, std::size_t own) {
  const ListColumn& key = lookup.columns[own];
  const ListColumn& sibling = lookup.columns[1 - own];
  definition.BrwTitulo(String(lookup.title));
  definition.BrowseTable(String(lookup.table));
  definition.BrwCampo(String(key.field));
  definition.BrwCampoIrmao(String(sibling.field));
  definition.BrwCampoOutros(otherFields(lookup));
  definition.BrwLeftJoin(String(lookup.from));
  definition.BrwWhere(String(lookup.where));
  addColumn(definition.cgrColGrid(), key);
  addColumn(definition.cgrColGrid(), sibling);
  for (std::size_t i = 2; i < lookup.columns.size(); ++i)
    addColumn(definition.cgrColGrid(), lookup.columns[i]);
}

void addSearch(Pesquisa& searches, const ListSearch& search) {
  searches.Add(search.number, String(search.caption), String(search.field), search.kind,
               static_cast<Long>(search.match), String(search.mask), search.width, search.length,
               search.completes, search.kind == ListSearch::Date, 0, 0, String());
}

}  // namespace

void useLookup(const Lookup& lookup, qt::TsText* code, qt::TsText* description) {
  auto& ofCode = *code->browseDefinition();
  define(ofCode, lookup, 0);
  for (const StringView name : lookup.returned) ofCode.Outros().Add(String(name));
  for (const ListSearch& search : lookup.searches) addSearch(*code->pesquisaDefinition(), search);
  define(*description->browseDefinition(), lookup, 1);
}

void keepCityInState(qt::TsText* state, qt::TsText* city) {
  const auto isElsewhere = [state, city] {
    const Variant home = returned(city, u"uf");
    return !codeIn(city).isEmpty() && !home.IsNull() && !home.IsEmpty() &&
           qt::toQt(CStr(home)) != codeIn(state);
  };
  QObject::connect(state, &qt::TsText::browseReturn, city, [=](bool& changed) {
    if (changed && isElsewhere()) giveCode(city, Variant::Null());
  });
  QObject::connect(city, &qt::TsText::browseReturn, state, [=](bool& changed) {
    if (changed && codeIn(state).isEmpty()) giveCode(state, returned(city, u"uf"));
  });
}

}  // namespace tessaria::demo
