// The definition of a lookup: the table, the fields and the conditions of its statements.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/grid_columns.h"
#include "tessaria/host/control.h"

namespace tessaria {

class BagReader;

/// One return field of a lookup.
class TESSARIA_CORE_API CampoOutro : public Object {
 public:
  explicit CampoOutro(String nome) : nome_(std::move(nome)) {}

  /// The field's name as the statement selects it.
  String Nome() const { return nome_; }
  /// The field's value in the row that the last lookup found; Empty without one.
  Variant Valor() const { return valor_; }
  void Valor(const Variant& v) { valor_ = v; }

 private:
  String nome_;
  Variant valor_;
};

/// The return fields. An entry taken from the list stays valid when the list changes.
class TESSARIA_CORE_API ListaOutros : public Object {
 public:
  ListaOutros() = default;
  ListaOutros(const ListaOutros&) = delete;
  ListaOutros& operator=(const ListaOutros&) = delete;

  /// The number of fields.
  Long Count() const { return static_cast<Long>(campos_.size()); }
  /// From 1. Error 9 outside the list.
  std::shared_ptr<CampoOutro> Item(Long index) const;
  /// Adds a field at the end, without a value.
  void Add(const String& Nome);
  /// Removes all fields.
  void Clear() { campos_.clear(); }

  /// Replaces the list by the stored one. Values are results of lookups and are not stored.
  void Read(BagReader& reader);
  /// Writes the names; the bag's reader finds them in the same order.
  void Write(host::PropertyBag& bag) const;

 private:
  std::vector<std::shared_ptr<CampoOutro>> campos_;
};

/// The definition of a lookup.
class TESSARIA_CORE_API Browse : public host::Persistent {
 public:
  Browse() = default;
  Browse(const Browse&) = delete;
  Browse& operator=(const Browse&) = delete;

  /// Caption over the grid; empty means `BrowseTable`.
  String BrwTitulo() const { return brwTitulo_; }
  void BrwTitulo(const String& v) { brwTitulo_ = v; }
  /// The main table.
  String BrowseTable() const { return browseTable_; }
  void BrowseTable(const String& v) { browseTable_ = v; }
  /// The key field, which may have an alias: the value that returns to the control.
  String BrwCampo() const { return brwCampo_; }
  void BrwCampo(const String& v) { brwCampo_ = v; }
  /// The field that feeds the sibling control.
  String BrwCampoIrmao() const { return brwCampoIrmao_; }
  void BrwCampoIrmao(const String& v) { brwCampoIrmao_ = v; }
  /// Further select fields, joined by ", ".
  String BrwCampoOutros() const { return brwCampoOutros_; }
  void BrwCampoOutros(const String& v) { brwCampoOutros_ = v; }
  /// The whole group clause with its keywords.
  String BrwGroupBy() const { return brwGroupBy_; }
  void BrwGroupBy(const String& v) { brwGroupBy_ = v; }
  /// The whole text after From; replaces `BrowseTable` in every statement when not empty.
  String BrwLeftJoin() const { return brwLeftJoin_; }
  void BrwLeftJoin(const String& v) { brwLeftJoin_ = v; }
  /// The text after From: `BrwLeftJoin`, or the table when that is empty.
  String From() const { return brwLeftJoin_.empty() ? browseTable_ : brwLeftJoin_; }
  /// A condition without the word Where; may hold @name@ parameters.
  String BrwWhere() const { return brwWhere_; }
  void BrwWhere(const String& v) {
    brwWhere_ = v;
    wherePronto_ = false;
  }
  /// Assigns a condition whose parameters are already expanded: an "@" in it belongs to a value.
  /// Not stored.
  void WherePronto(const String& v) {
    brwWhere_ = v;
    wherePronto_ = true;
  }
  bool WherePronto() const { return wherePronto_; }

  /// Both lists live as long as the definition.
  ListaOutros& Outros() { return outros_; }
  const ListaOutros& Outros() const { return outros_; }
  /// The columns of the list, in their order; lives as long as the definition.
  ListaColunas& cgrColGrid() { return cgrColGrid_; }
  const ListaColunas& cgrColGrid() const { return cgrColGrid_; }

  String ClassName() const override { return u"Browse"; }
  /// Replaces everything by what the bag holds. Error 13 when a value is invalid; all other values
  /// are loaded nevertheless.
  void ReadProperties(const host::PropertyBag& bag) override;
  void WriteProperties(host::PropertyBag& bag) const override;

 private:
  String brwTitulo_;
  String browseTable_;
  String brwCampo_;
  String brwCampoIrmao_;
  String brwCampoOutros_;
  String brwGroupBy_;
  String brwLeftJoin_;
  String brwWhere_;
  bool wherePronto_ = false;
  ListaOutros outros_;
  ListaColunas cgrColGrid_;
};

namespace mdlObjTxt {

/// Replaces the columns of `target` by copies of those of `source`, which are then removed from
/// `source` when `clearSource` is true.
TESSARIA_CORE_API void CopiaColunas(Browse& source, Browse& target, bool clearSource);

}  // namespace mdlObjTxt

}  // namespace tessaria
