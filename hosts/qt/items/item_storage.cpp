#include "hosts/qt/items/item_storage.h"

#include <QScopedValueRollback>
#include <algorithm>

#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt {
namespace {

using mdlObjTxt::TiraAlias;

/// A column of a statement, and the column of the grid that it is for.
struct Selected {
  String text;
  std::size_t column;
};

/// The description of a pair, read by the lookup of its code.
String descriptionOf(const ItemSettings& settings, const ItemColumn& column) {
  const auto code =
      std::find_if(settings.columns.begin(), settings.columns.end(), [&](const ItemColumn& other) {
        return !column.field.sibling.empty() && EqualNoCase(other.field.name, column.field.sibling);
      });
  if (code == settings.columns.end() || code->field.dataField.empty()) return {};
  const LookupSettings& lookup = code->field.lookup;
  constexpr std::size_t kKeyAndDescription = 2;
  if (lookup.columns.size() < kKeyAndDescription) return {};
  const String& from = lookup.from.empty() ? lookup.table : lookup.from;
  return u"(select min(" + TiraAlias(lookup.columns[1].field) + u") from " + from + u" where " +
         TiraAlias(lookup.columns[0].field) + u" = " + settings.table + u"." +
         code->field.dataField + u")";
}

String expressionOf(const ItemSettings& settings, const ItemColumn& column) {
  return column.expression.empty() ? descriptionOf(settings, column) : column.expression;
}

std::vector<Selected> storedColumns(const ItemSettings& settings) {
  std::vector<Selected> columns;
  for (std::size_t i = 0; i < settings.columns.size(); ++i) {
    const ItemColumn& column = settings.columns[i];
    if (!column.compute && !column.field.dataField.empty())
      columns.push_back({column.field.dataField, i});
  }
  return columns;
}

std::vector<Selected> expressions(const ItemSettings& settings) {
  std::vector<Selected> columns;
  for (std::size_t i = 0; i < settings.columns.size(); ++i) {
    const ItemColumn& column = settings.columns[i];
    if (column.compute || !column.field.dataField.empty()) continue;
    const String text = expressionOf(settings, column);
    if (!text.empty()) columns.push_back({text, i});
  }
  return columns;
}

String conditionOf(const ItemSettings& settings, const host::ConnectionPtr& connection,
                   const ParentValues& parents) {
  // The literals are written for this connection's server.
  const QScopedValueRollback server(State().dbConexao, connection);
  String condition;
  for (std::size_t i = 0; i < settings.links.size(); ++i) {
    const String& column = settings.links[i].column;
    condition += (i == 0 ? u"" : u" and ") + column + u" = " + SqlLiteral(parents.at(i), column);
  }
  return condition;
}

/// The links and the number first, so that the rows can be written.
String statementOf(const ItemSettings& settings, const std::vector<Selected>& columns,
                   const String& condition) {
  String list;
  for (const ItemLink& link : settings.links) list += link.column + u", ";
  list += settings.number;
  for (const Selected& column : columns) list += u", " + column.text;
  return u"select " + list + u" from " + settings.table +
         (condition.empty() ? String() : u" where " + condition) + u" order by " + settings.number;
}

StoredItem itemIn(const ItemSettings& settings, host::Recordset& rows,
                  const std::vector<Selected>& columns) {
  const auto first = static_cast<Long>(settings.links.size());
  StoredItem item;
  item.values.assign(settings.columns.size(), Variant::Null());
  item.number = rows.Fields().Item(first)->Value();
  for (std::size_t i = 0; i < columns.size(); ++i)
    item.values[columns[i].column] = rows.Fields().Item(first + 1 + static_cast<Long>(i))->Value();
  return item;
}

std::vector<StoredItem> itemsIn(const ItemSettings& settings, host::Recordset& rows,
                                const std::vector<Selected>& columns) {
  std::vector<StoredItem> items;
  for (; !rows.Eof(); rows.MoveNext()) items.push_back(itemIn(settings, rows, columns));
  return items;
}

/// One writing of the items.
class ItemWriter {
 public:
  ItemWriter(const ItemSettings& settings, const host::ConnectionPtr& connection,
             const ParentValues& parents)
      : settings_(settings),
        parents_(parents),
        columns_(storedColumns(settings)),
        rows_(connection->OpenRecordset(
            statementOf(settings, columns_, conditionOf(settings, connection, parents)),
            host::CursorType::Static, host::LockType::Optimistic)),
        present_(itemsIn(settings, *rows_, columns_)) {}

  bool holds(const std::vector<StoredItem>& items) const {
    return items.size() == present_.size() &&
           std::equal(items.begin(), items.end(), present_.begin(),
                      [this](const StoredItem& a, const StoredItem& b) { return isSame(a, b); });
  }
  const std::vector<StoredItem>& present() const { return present_; }

  /// Rows are changed and removed from the last to the first, which leaves the positions of the
  /// others alone.
  void changeTo(const std::vector<StoredItem>& items) {
    for (std::size_t i = present_.size(); i > 0; --i) {
      const StoredItem* wanted = find(items, present_[i - 1].number);
      if (wanted && isSame(*wanted, present_[i - 1])) continue;
      rows_->AbsolutePosition(static_cast<Long>(i));
      if (!wanted) {
        rows_->Delete();
        continue;
      }
      assign(*wanted);
      rows_->Update();
    }
  }
  /// The numbers that the database gives come back in the items.
  void add(std::vector<StoredItem>& items) {
    for (StoredItem& item : items) {
      if (!item.number.IsNull() && find(present_, item.number)) continue;
      rows_->AddNew();
      for (std::size_t i = 0; i < settings_.links.size(); ++i)
        rows_->Fields().Item(static_cast<Long>(i))->Value(parents_.at(i));
      if (!item.number.IsNull()) numberField()->Value(item.number);
      assign(item);
      rows_->Update();
      item.number = numberField()->Value();
    }
  }

 private:
  bool isSame(const StoredItem& a, const StoredItem& b) const {
    return isStoredAlike(a.number, b.number) && holdsTheSame(a, b);
  }
  bool holdsTheSame(const StoredItem& a, const StoredItem& b) const {
    return std::all_of(columns_.begin(), columns_.end(), [&](const Selected& column) {
      return isStoredAlike(a.values[column.column], b.values[column.column]);
    });
  }
  static const StoredItem* find(const std::vector<StoredItem>& items, const Variant& number) {
    const auto found = std::find_if(items.begin(), items.end(), [&](const StoredItem& item) {
      return isStoredAlike(item.number, number);
    });
    return found == items.end() ? nullptr : &*found;
  }
  host::FieldPtr numberField() const {
    return rows_->Fields().Item(static_cast<Long>(settings_.links.size()));
  }
  void assign(const StoredItem& item) {
    const auto first = static_cast<Long>(settings_.links.size()) + 1;
    for (std::size_t i = 0; i < columns_.size(); ++i)
      rows_->Fields().Item(first + static_cast<Long>(i))->Value(item.values[columns_[i].column]);
  }

  const ItemSettings& settings_;
  const ParentValues& parents_;
  std::vector<Selected> columns_;
  host::RecordsetPtr rows_;
  std::vector<StoredItem> present_;
};

Long greatestNumber(const std::vector<StoredItem>& items) {
  Long greatest = 0;
  for (const StoredItem& item : items) greatest = std::max(greatest, CLng(item.number));
  return greatest;
}

/// New items get the numbers after those that were read, or none yet.
std::vector<StoredItem> numbered(const ItemSettings& settings,
                                 const std::vector<StoredItem>& loaded,
                                 const std::vector<ItemToStore>& items) {
  Long last = settings.isNumberGenerated ? 0 : greatestNumber(loaded);
  std::vector<StoredItem> result;
  for (const ItemToStore& item : items) {
    Variant number = Variant::Null();
    if (item.former)
      number = item.former->number;
    else if (!settings.isNumberGenerated)
      number = ++last;
    result.push_back({number, item.values});
  }
  return result;
}

/// Items that were stored before have got their numbers then: they follow those that were read.
void takeGivenNumbers(std::vector<StoredItem>& items, const std::vector<StoredItem>& loaded,
                      const std::vector<StoredItem>& present) {
  const Long last = loaded.empty() ? 0 : greatestNumber(loaded);
  auto given = std::find_if(present.begin(), present.end(),
                            [last](const StoredItem& item) { return CLng(item.number) > last; });
  for (StoredItem& item : items)
    if (item.number.IsNull() && given != present.end()) item.number = (given++)->number;
}

}  // namespace

bool isStoredAlike(const Variant& a, const Variant& b) {
  const bool isBlank = a.IsNull() || a.IsEmpty();
  if (isBlank || b.IsNull() || b.IsEmpty()) return isBlank && (b.IsNull() || b.IsEmpty());
  const bool areTexts = a.IsString() && b.IsString();  // "01" is another code than "1"
  if (!areTexts && IsNumeric(a) && IsNumeric(b)) return IsSameNumber(a, b);
  return CStr(a) == CStr(b);
}

std::vector<StoredItem> readItems(const ItemSettings& settings,
                                  const host::ConnectionPtr& connection,
                                  const ParentValues& parents) {
  std::vector<Selected> columns = storedColumns(settings);
  const std::vector<Selected> others = expressions(settings);
  columns.insert(columns.end(), others.begin(), others.end());
  const auto rows = connection->Execute(
      statementOf(settings, columns, conditionOf(settings, connection, parents)));
  return itemsIn(settings, *rows, columns);
}

std::vector<StoredItem> writeItems(const ItemSettings& settings,
                                   const host::ConnectionPtr& connection,
                                   const ParentValues& parents,
                                   const std::vector<StoredItem>& loaded,
                                   const std::vector<ItemToStore>& items, bool overwrites) {
  std::vector<StoredItem> wanted = numbered(settings, loaded, items);
  ItemWriter writer(settings, connection, parents);
  std::vector<StoredItem> stored = wanted;
  takeGivenNumbers(stored, loaded, writer.present());
  if (writer.holds(stored)) return stored;
  if (!overwrites && !writer.holds(loaded))
    throw HostError(errors::RowChanged, u"Outro usuário alterou os itens depois que foram lidos.");
  writer.changeTo(wanted);
  writer.add(wanted);
  return wanted;
}

}  // namespace tessaria::qt
