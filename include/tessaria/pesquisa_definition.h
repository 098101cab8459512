// The searches that a lookup grid offers.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/control.h"

namespace tessaria {

/// One entry of the searches: a field, and how the operator's text is compared with it.
class TESSARIA_CORE_API ItemPesquisa : public Object {
 public:
  /// Number of the search; entries of one number make one combined search. An entry without a
  /// number of its own returns its position in the list.
  Long Indice() const { return indice_ != 0 ? indice_ : posicao_; }
  /// 0 removes the number, so that the position counts again.
  void Indice(Long v) { indice_ = v; }
  /// Title of the prompt and text of the menu.
  String Caption() const { return caption_; }
  void Caption(const String& v) { caption_ = v; }
  /// The field to compare; may be an expression.
  String Campo() const { return campo_; }
  void Campo(const String& v) { campo_ = v; }
  /// Whether the prompt's value keeps the mask's literals.
  bool PromptInclude() const { return promptInclude_; }
  void PromptInclude(bool v) { promptInclude_ = v; }
  /// Whether `Campo` is used as it stands, not qualified by the table.
  bool CampoPronto() const { return campoPronto_; }
  void CampoPronto(bool v) { campoPronto_ = v; }
  /// Whether the prompt for a text completes it as the operator types.
  bool CompletaDescr() const { return completaDescr_; }
  void CompletaDescr(bool v) { completaDescr_ = v; }
  /// The most characters in the prompt; 0 for no limit.
  Integer MaxLength() const { return maxLength_; }
  void MaxLength(Integer v) { maxLength_ = v; }
  /// Width of the prompt, twips.
  Integer Width() const { return width_; }
  void Width(Integer v) { width_ = v; }
  /// Mask of the prompt; empty for none.
  String Mascara() const { return mascara_; }
  void Mascara(const String& v) { mascara_ = v; }
  /// Comparison: 0 equal, 1 starts with, 2 ends with, 3 contains, 4 to 7 >, >=, <, <=.
  Long Like() const { return like_; }
  void Like(Long v) { like_ = v; }
  /// 2 number, 7 date, 8 text.
  Long Tipo() const { return tipo_; }
  void Tipo(Long v) { tipo_ = v; }
  /// Order text of this search; empty orders by the field.
  String OrderBy() const { return orderBy_; }
  void OrderBy(const String& v) { orderBy_ = v; }

 private:
  friend class Pesquisa;

  String chave_;
  Long posicao_ = 0;
  Long indice_ = 0;
  String caption_;
  String campo_;
  bool promptInclude_ = false;
  bool campoPronto_ = false;
  bool completaDescr_ = false;
  Integer maxLength_ = 0;
  Integer width_ = 0;
  String mascara_;
  Long like_ = 0;
  Long tipo_ = 0;
  String orderBy_;
};

/// The list of searches. Entries are reached by position from 1 or by key; keys compare without
/// regard to case. An entry taken from the list stays valid when the list changes.
class TESSARIA_CORE_API Pesquisa : public host::Persistent {
 public:
  Pesquisa() = default;
  Pesquisa(const Pesquisa&) = delete;
  Pesquisa& operator=(const Pesquisa&) = delete;

  /// The number of entries.
  Long Count() const { return static_cast<Long>(itens_.size()); }
  /// Error 9 outside the list.
  std::shared_ptr<ItemPesquisa> Item(Long index) const;
  /// Error 5 when no entry has the key.
  std::shared_ptr<ItemPesquisa> Item(const String& key) const;
  /// Always false for an empty key.
  bool Contains(const String& key) const;

  /// Inserts an entry before position `Antes`, or after position `Depois`, or, when both are 0, at
  /// the end. An `Indice` of 0 numbers the entry by its position, now and after every change of the
  /// list. An empty `Chave` gives no key. Returns false and changes nothing when the key is already
  /// used, when a position is not in the list, or when both positions are given.
  bool Add(Long Indice, const String& Caption, const String& Campo, Long Tipo, Long Like,
           const String& Mascara, Integer Width, Integer MaxLength, bool CompletaDescr,
           bool PromptInclude, Long Antes, Long Depois, const String& Chave);
  /// Error 9 outside the list.
  void Remove(Long index);
  /// Removes all entries.
  void Clear() { itens_.clear(); }

  String ClassName() const override { return u"Pesquisa"; }
  /// Replaces everything by what the bag holds. Error 13 when a value is invalid (as is a key that
  /// occurs twice); all other values are loaded nevertheless.
  void ReadProperties(const host::PropertyBag& bag) override;
  void WriteProperties(host::PropertyBag& bag) const override;

 private:
  std::shared_ptr<ItemPesquisa> Find(const String& key) const;
  void Renumber();

  std::vector<std::shared_ptr<ItemPesquisa>> itens_;
};

}  // namespace tessaria
