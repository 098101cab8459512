#include "wizard/format_sql.h"

#include "lookup/dialect.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::wizard {
namespace {

constexpr char16_t kPlace = u'#';

bool HasBlankEnd(const String& text) { return text.front() == u' ' || text.back() == u' '; }

/// Walks a mask and puts the expression together. Positions are from 1.
class MaskWalk {
 public:
  MaskWalk(const String& campo, const String& mascara, const String& dbms)
      : campo_(campo),
        mascara_(mascara),
        substring_(mdlObjTxt::sqlFuncao(dbms, u"sqlSubstring")),
        operator_(mdlObjTxt::sqlFuncao(dbms, u"sqlConcat")) {}

  String Expression() {
    while (pos_ <= Len(mascara_)) {
      const String literal = LiteralHere();
      if (literal.empty()) {
        ++pos_;
      } else {
        AddLiteral(literal);
      }
    }
    AddPiece(String());
    return resultado_;
  }

 private:
  /// The literal up to the next place, which is then the present position.
  String LiteralHere() {
    const Long start = pos_;
    while (Mid(mascara_, pos_, 1) != String(1, kPlace)) {
      if (pos_ > Len(mascara_))
        throw HostError(errors::InvalidArgument,
                        u"A máscara \"" + mascara_ + u"\" deve terminar em #.");
      ++pos_;
    }
    return Mid(mascara_, start, pos_ - start);
  }

  void AddLiteral(const String& literal) {
    // The last character of the literal itself is not looked at.
    const bool isLeading = InStr(Left(mascara_, pos_ - 2), u"#") == 0 && !HasBlankEnd(literal);
    literals_ += Len(literal);
    if (isLeading) {
      resultado_ += u"'" + literal + u"'";
    } else {
      AddPiece(literal);
    }
    posCampo_ = pos_ - literals_;
  }

  /// The characters of the value since the last literal, and a literal behind them.
  void AddPiece(const String& literal) {
    if (!resultado_.empty()) resultado_ += u" " + operator_ + u" ";
    resultado_ += substring_ + u"(" + campo_ + u", " + Str(posCampo_) + u", " +
                  Str(pos_ - posCampo_ - literals_) + u") " + operator_ + u" '" + literal + u"'";
  }

  const String& campo_;
  const String& mascara_;
  const String substring_;
  const String operator_;
  String resultado_;
  Long pos_ = 1;
  Long posCampo_ = 1;  // the next character of the value
  Long literals_ = 0;  // characters of all literals so far
};

}  // namespace

String FormatSql(const String& field, const String& mask, const String& database) {
  return MaskWalk(field, mask, database).Expression();
}

}  // namespace tessaria::wizard
