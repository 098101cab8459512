// The columns of a lookup grid.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/control.h"
#include "tessaria/variant.h"

namespace tessaria {

class BagReader;

/// How one column of the grid shows a field.
class TESSARIA_CORE_API ColunaGrid : public Object {
 public:
  /// The column's header; when empty, the name of the field.
  String Caption() const { return caption_; }
  void Caption(const String& v) { caption_ = v; }
  /// The field's name in the rows.
  String Campo() const { return campo_; }
  void Campo(const String& v) { campo_ = v; }
  /// The column's format.
  String Mascara() const { return mascara_; }
  void Mascara(const String& v) { mascara_ = v; }
  /// Twips.
  float Width() const { return width_; }
  void Width(float v) { width_ = v; }
  /// Whether the list shows the column.
  bool Visible() const { return visible_; }
  void Visible(bool v) { visible_ = v; }

 private:
  String caption_;
  String campo_;
  String mascara_;
  float width_ = 0;
  bool visible_ = true;
};

/// Columns from left to right. An entry taken from the list stays valid when the list changes.
class TESSARIA_CORE_API ListaColunas : public Object {
 public:
  ListaColunas() = default;
  ListaColunas(const ListaColunas&) = delete;
  ListaColunas& operator=(const ListaColunas&) = delete;

  /// The number of columns.
  Long Count() const { return static_cast<Long>(colunas_.size()); }
  /// From 1. Error 9 outside the list.
  std::shared_ptr<ColunaGrid> Item(Long index) const;
  /// Adds a column to the right of the others. The width is in twips.
  void Add(const String& Campo, const String& Caption, const String& Mascara, float Width,
           bool Visible);
  /// Removes all columns.
  void Clear() { colunas_.clear(); }

  /// Replaces the list by the stored one; the reader reports invalid values.
  void Read(BagReader& reader);
  /// Writes every column to the bag.
  void Write(host::PropertyBag& bag) const;

 private:
  std::vector<std::shared_ptr<ColunaGrid>> colunas_;
};

namespace mdlObjTxt {

/// Replaces the columns of `target` by copies of those of `source`, which is emptied afterwards
/// when `clearSource` is true.
TESSARIA_CORE_API void CopiaColunas(ListaColunas& source, ListaColunas& target, bool clearSource);

}  // namespace mdlObjTxt
}  // namespace tessaria
