#include "tessaria/field_settings.h"

#include <utility>

#include "lookup/bag_reader.h"
#include "tessaria/browse_definition.h"
#include "tessaria/error.h"
#include "tessaria/masks.h"
#include "tessaria/pesquisa_definition.h"

namespace tessaria {

namespace {

/// How the control stores the type of an unbound value, and a search that of what it compares.
struct TypeCodes {
  Long Unbound;
  Long Search;
};

TypeCodes CodesOf(DataType type) {
  switch (type) {
    case DataType::Number:
      return {5, 2};
    case DataType::Date:
      return {7, 7};
    case DataType::Text:
      break;
  }
  return {1, 8};
}

DataType UsualType(TipoControle kind) {
  if (kind == TipoControle::Calendario) return DataType::Date;
  if (kind == TipoControle::Calculadora) return DataType::Number;
  return DataType::Text;
}

String FieldOf(const std::vector<LookupColumn>& columns, std::size_t position) {
  return position < columns.size() ? columns[position].field : String();
}

/// What the list selects behind the key and the description.
String OtherFields(const std::vector<LookupColumn>& columns) {
  String fields;
  for (std::size_t i = 2; i < columns.size(); ++i) {
    if (!fields.empty()) fields += u", ";
    fields += columns[i].field;
  }
  return fields;
}

void AddTo(Pesquisa& searches, const LookupSearch& search) {
  const bool isDate = search.type == DataType::Date;
  const String mask = isDate && search.mask.empty() ? String(u"dd/mm/yyyy") : search.mask;
  searches.Add(search.number, search.caption, search.field, CodesOf(search.type).Search,
               static_cast<Long>(search.comparison), mask, search.width, search.maxLength,
               search.completes, search.promptInclude || isDate, 0, 0, String());
  const auto item = searches.Item(searches.Count());
  item->CampoPronto(search.isExpression);
  item->OrderBy(search.orderBy);
}

class Writer {
 public:
  explicit Writer(host::PropertyBag& bag) : bag_(bag) {}

  void Text(StringView key, const String& value) {
    if (!value.empty()) Put(key, value);
  }
  void Put(StringView key, const Variant& value) {
    bag_.WriteProperty(String(key), value, AlwaysStored());
  }

 private:
  host::PropertyBag& bag_;
};

void WriteInput(const FieldSettings& settings, Writer& writer) {
  const bool includesByKind = UsualType(settings.kind) != DataType::Text;
  writer.Put(u"TipoControle", static_cast<Long>(settings.kind));
  writer.Text(u"Mascara", settings.mask);
  if (!settings.mask.empty())
    writer.Text(u"ItensMascara", mdlObjTxt::MontaItensMascara(settings.mask, settings.promptChar));
  writer.Put(u"MaxLength", settings.maxLength);
  writer.Put(u"PodeSerBranco", settings.mayBeBlank);
  writer.Put(u"ValorNegativo", settings.acceptsNegative);
  writer.Put(u"Enabled", settings.enabled);
  writer.Put(u"TipoDado", CodesOf(settings.type.value_or(UsualType(settings.kind))).Unbound);
  writer.Put(u"PromptInclude", settings.promptInclude.value_or(includesByKind));
  writer.Text(u"PromptChar", settings.promptChar);
  writer.Text(u"PasswordChar", settings.passwordChar);
  writer.Put(u"TipoStrZero", static_cast<Long>(settings.zeroFill));
}

void WriteSurroundings(const FieldSettings& settings, Writer& writer) {
  writer.Text(u"DataSource", settings.dataSource);
  writer.Text(u"DataField", settings.dataField);
  writer.Text(u"TxtIrmao", settings.sibling);
  writer.Text(u"LabelAssociado", settings.label);
  writer.Text(u"ObjetoCancelar", settings.cancelButton);
  writer.Text(u"NumeroTab", settings.tab);
  writer.Put(u"eSocial", settings.highlightsLabel);
}

void WriteLookup(const FieldSettings& settings, Writer& writer) {
  writer.Put(u"Browse", ObjectPtr(MakeBrowse(settings.lookup)));
  if (!settings.lookup.searches.empty())
    writer.Put(u"Pesquisa", ObjectPtr(MakePesquisa(settings.lookup)));
  writer.Put(u"UsaChecaRelacao", settings.checksKey);
  writer.Text(u"MsgBrowse", settings.notFoundText);
  writer.Put(u"DirVerArquivos", settings.picksFiles);
  writer.Text(u"DirPattern", settings.filePattern);
}

void WriteLooks(const FieldSettings& settings, Writer& writer) {
  if (settings.foreColor) writer.Put(u"ForeColor", static_cast<Long>(*settings.foreColor));
  if (settings.backColor) writer.Put(u"BackColor", static_cast<Long>(*settings.backColor));
  if (settings.font) writer.Put(u"Font", ObjectPtr(std::make_shared<host::Font>(*settings.font)));
}

}  // namespace

LookupSettings ForDescription(LookupSettings lookup) {
  if (lookup.columns.size() < 2) throw HostError(errors::InvalidArgument);
  std::swap(lookup.columns[0], lookup.columns[1]);
  lookup.searches.clear();
  lookup.returnFields.clear();
  return lookup;
}

FieldPair MakePair(const LookupSettings& lookup, FieldSettings code, FieldSettings description) {
  if (code.name.empty() || description.name.empty()) throw HostError(errors::InvalidArgument);
  code.kind = TipoControle::Browse;
  code.sibling = description.name;
  code.lookup = lookup;
  description.kind = TipoControle::Descricao;
  description.sibling = code.name;
  description.lookup = ForDescription(lookup);
  return {std::move(code), std::move(description)};
}

std::shared_ptr<Browse> MakeBrowse(const LookupSettings& lookup) {
  auto definition = std::make_shared<Browse>();
  definition->BrwTitulo(lookup.title);
  definition->BrowseTable(lookup.table);
  definition->BrwCampo(FieldOf(lookup.columns, 0));
  definition->BrwCampoIrmao(FieldOf(lookup.columns, 1));
  definition->BrwCampoOutros(OtherFields(lookup.columns));
  definition->BrwGroupBy(lookup.groupBy);
  definition->BrwLeftJoin(lookup.from);
  definition->BrwWhere(lookup.where);
  for (const String& field : lookup.returnFields) definition->Outros().Add(field);
  for (const LookupColumn& column : lookup.columns) {
    const String& caption = column.caption.empty() ? column.field : column.caption;
    definition->cgrColGrid().Add(column.field, caption, column.format, column.width,
                                 column.visible);
  }
  return definition;
}

std::shared_ptr<Pesquisa> MakePesquisa(const LookupSettings& lookup) {
  auto searches = std::make_shared<Pesquisa>();
  for (const LookupSearch& search : lookup.searches) AddTo(*searches, search);
  return searches;
}

void WriteSettings(const FieldSettings& settings, host::PropertyBag& bag) {
  Writer writer(bag);
  WriteInput(settings, writer);
  WriteSurroundings(settings, writer);
  WriteLookup(settings, writer);
  WriteLooks(settings, writer);
}

}  // namespace tessaria
