// A field, its lookup and a data control, each described by one value in code.
//
//   const LookupSettings cities{
//       .title = u"Cidades",
//       .table = u"cidades",
//       .columns = {{.field = u"codigo", .caption = u"Código"}, {.field = u"nome"}},
//       .searches = {{.caption = u"Nome", .field = u"nome"}}};
//   const FieldPair city = MakePair(cities, {.name = u"cidade"}, {.name = u"nome_da_cidade"});
//   auto* code = new tessaria::qt::TsText(city.code, form);
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/control.h"
#include "tessaria/tstext_interface.h"
#include "tessaria/validators.h"

namespace tessaria {

class Browse;
class Pesquisa;

/// What a field or a search holds.
enum class DataType { Text, Number, Date };

/// How a search compares a row with what the operator typed.
enum class Comparison : Long {
  Equal = 0,
  BeginsWith = 1,
  EndsWith = 2,
  Contains = 3,
  Greater = 4,
  AtLeast = 5,
  Less = 6,
  AtMost = 7
};

/// What leaving a field fills with zeros, in a mask with a "0".
enum class ZeroFill : Long { WholeText = 1, EachRun = 2 };

/// A column of a lookup's list.
struct LookupColumn {
  String field;  ///< as the statement selects it; may be an expression with " as " and a name
  String caption = {};  ///< when empty, `field`
  String format = {};   ///< of numbers and dates: "#,##0.00", "dd/mm/yyyy"
  float width = 1440;   ///< twips
  bool visible = true;  ///< whether the list shows it
};

/// A search that the list offers.
struct LookupSearch {
  String caption;                                ///< in the menu and beside the prompt
  String field;                                  ///< the column, or an expression
  DataType type = DataType::Text;                ///< of the searched column
  Comparison comparison = Comparison::Contains;  ///< how a row is compared with what is typed
  String mask = {};            ///< of the prompt; a date without one gets "dd/mm/yyyy"
  Integer width = 3600;        ///< of the prompt, twips
  Integer maxLength = 0;       ///< most characters; 0 for no limit
  bool completes = false;      ///< whether the prompt for a text completes it
  bool promptInclude = false;  ///< whether its value keeps the literals; that of a date always does
  bool isExpression = false;   ///< whether `field` is used as it stands, not qualified by the table
  String orderBy = {};         ///< when empty, the field
  /// Searches of one number are asked for together, and all of them must match. 0 numbers a search
  /// by its position, from 1.
  Long number = 0;
};

/// Where a key or a description is looked up, and how the list shows it.
struct LookupSettings {
  String title = {};  ///< of the list; when empty, the table
  String table = {};  ///< that is searched
  /// The key first, then the description, if there is one, then what the list shows beside them.
  std::vector<LookupColumn> columns = {};
  String from = {};     ///< the table with its joins; when empty, the table alone
  String where = {};    ///< condition without WHERE; `@name@` stands for the value of a field
  String groupBy = {};  ///< the whole GROUP BY clause with its keywords
  std::vector<LookupSearch> searches = {};  ///< in the order of the menu
  /// Fields of the found row that the program reads, by `browseDefinition()->Outros()`. Each must
  /// be among the columns, visible or not.
  std::vector<String> returnFields = {};
};

/// A field with everything that a form file can store of it, and the check of its text.
struct FieldSettings {
  String name = {};                          ///< on its form, where siblings and `@name@` find it
  TipoControle kind = TipoControle::Normal;  ///< which button it has, and what leaving it does
  String mask = {};                          ///< that keys pass through; empty for none
  Long maxLength = 0;                        ///< most characters typed; 0 for no limit
  bool mayBeBlank = true;                    ///< whether it may stay blank
  bool acceptsNegative = false;  ///< whether a numeric mask takes a minus sign; needs `maxLength`
  Validator validator = {};      ///< a check of the program's; no file stores it
  bool enabled = true;           ///< whether the operator can work in it
  /// Type of an unbound value. By default a date for `Calendario`, a number for `Calculadora`,
  /// otherwise a text.
  std::optional<DataType> type = {};
  /// Whether the value holds the mask's literals. By default it does for `Calendario` and
  /// `Calculadora`.
  std::optional<bool> promptInclude = {};
  String promptChar = u"_";  ///< shows the empty slots of the mask
  String passwordChar = {};  ///< shown in place of each character; empty shows the text
  ZeroFill zeroFill = ZeroFill::EachRun;  ///< what leaving it fills in a mask with a "0"

  String dataSource = {};  ///< name of the data control; empty for an unbound field
  String dataField = {};   ///< column of its record set

  String sibling = {};           ///< name of the field with the description, or with the key
  String label = {};             ///< name of the caption
  String cancelButton = {};      ///< name of the control that takes the focus without any check
  String tab = {};               ///< number of the tab that the field is on; empty for none
  bool highlightsLabel = false;  ///< shows the caption green and bold

  LookupSettings lookup = {};  ///< of a key or a description
  bool checksKey = true;       ///< whether leaving the field looks its text up
  String notFoundText = {};    ///< message when the list finds no row; empty for the usual text

  bool picksFiles = true;   ///< a file of `Diretorio`, or a folder alone
  String filePattern = {};  ///< which files are offered, such as "*.txt"

  String placeholder = {};     ///< what an empty box shows; a form file stores it apart
  bool multiLineText = false;  ///< a box of several lines, likewise; not with a mask or a button

  std::optional<Colour> foreColor = {};  ///< by default that of the theme
  std::optional<Colour> backColor = {};  ///< likewise
  std::optional<host::Font> font = {};   ///< by default that of the form
};

/// A data control with everything that a form file can store of it.
struct DataControlSettings {
  String name = {};              ///< on its form, where fields find it
  String recordSource = {};      ///< a statement or the name of a table
  String connectionString = {};  ///< not needed by a data control that is given a connection
  String caption = {};           ///< between the buttons; when empty, the number of the row
  bool navigationKeys = true;    ///< whether the keys of the window move among the rows
  bool refreshesForm = true;     ///< whether a move loads the form's controls again
};

/// A key and its description, each the other's sibling.
struct FieldPair {
  FieldSettings code;         ///< the key
  FieldSettings description;  ///< what is shown for it
};

/// The lookup as the field with the description sees it: the first two columns swapped, without
/// searches and return fields, which belong to the code; the list of the description offers the
/// searches of its code. Error 5 when the lookup has fewer than two columns.
TESSARIA_CORE_API LookupSettings ForDescription(LookupSettings lookup);

/// Makes two fields a pair over one lookup: the kinds `Browse` and `Descricao`, each with the
/// other's name as its sibling. Error 5 when the lookup has fewer than two columns, or a field has
/// no name.
TESSARIA_CORE_API FieldPair MakePair(const LookupSettings& lookup, FieldSettings code,
                                     FieldSettings description);

/// The lookup as the definition that a control works with.
TESSARIA_CORE_API std::shared_ptr<Browse> MakeBrowse(const LookupSettings& lookup);
/// Its searches, likewise.
TESSARIA_CORE_API std::shared_ptr<Pesquisa> MakePesquisa(const LookupSettings& lookup);

/// What a form file can store of a field.
struct StoredSetting {
  String key;         ///< as the lines of a form file name it
  Variant byDefault;  ///< what an absent one counts as; Null for a definition and for the font
};

/// All of them, in the order in which a field reads them.
TESSARIA_CORE_API std::vector<StoredSetting> StoredSettings();

/// Writes all settings but the name into a bag, from which a control is loaded without side
/// effects.
TESSARIA_CORE_API void WriteSettings(const FieldSettings& settings, host::PropertyBag& bag);

}  // namespace tessaria
