#include "tessaria/scramble.h"

#include <gtest/gtest.h>

#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

using mdlComum::CodificaTexto;
using mdlComum::EhPar;
using mdlComum::NuloParaZero;

/// The code of the last character in the scrambled text.
Integer LastCode(const String& text) { return AnsiCode(CodificaTexto(text).back()); }

TEST(CodificaTexto, EmptyStaysEmpty) { EXPECT_EQ(CodificaTexto(u""), u""); }

TEST(CodificaTexto, MovesOddPositionsBackAndEvenPositionsForward) {
  // 65 + 50 - 1, 66 + 50 + 2, 67 + 50 - 3, 68 + 50 + 4
  EXPECT_EQ(CodificaTexto(u"ABCD"), u"rvrz");
  EXPECT_EQ(CodificaTexto(u"senha"),
            (String{u'\x00A4', u'\x2122', u'\x009D', u'\x017E', u'\x017D'}));
}

TEST(CodificaTexto, WrapsAboveThePage) {
  EXPECT_EQ(LastCode(String(1, u'A') + AnsiCharacter(205)), 2);
  EXPECT_EQ(LastCode(String(1, u'A') + AnsiCharacter(203)), 255);
  EXPECT_EQ(LastCode(String(1, u'A') + AnsiCharacter(204)), 1);
}

TEST(CodificaTexto, TwiceThePageIsZero) {
  // 254 + 50 + 206 = 510
  EXPECT_EQ(LastCode(String(205, u'A') + AnsiCharacter(254)), 0);
  EXPECT_EQ(LastCode(String(205, u'A') + AnsiCharacter(255)), 1);
}

TEST(CodificaTexto, WrapsBelowThePage) {
  EXPECT_EQ(LastCode(String(60, u'A') + AnsiCharacter(10)), 254);
  EXPECT_EQ(LastCode(String(60, u'A') + AnsiCharacter(11)), 0);
}

TEST(CodificaTexto, ACharacterOutsideThePageIsAQuestionMark) {
  EXPECT_EQ(CodificaTexto(u"\u4E2D"), CodificaTexto(u"?"));
}

TEST(CodificaTexto, FarBelowThePageIsAnError) {
  EXPECT_HOST_ERROR(CodificaTexto(String(338, u'A') + u" "), errors::InvalidArgument);
  EXPECT_HOST_ERROR(CodificaTexto(String(1000, u'A')), errors::InvalidArgument);
}

TEST(EhPar, IsTrueForEvenNumbers) {
  EXPECT_TRUE(EhPar(0));
  EXPECT_TRUE(EhPar(2));
  EXPECT_TRUE(EhPar(-4));
  EXPECT_FALSE(EhPar(1));
  EXPECT_FALSE(EhPar(-3));
}

TEST(NuloParaZero, IsTheNumberOrZero) {
  EXPECT_EQ(NuloParaZero(Variant::Null()), 0);
  EXPECT_EQ(NuloParaZero(Variant()), 0);
  EXPECT_EQ(NuloParaZero(Variant(12.5)), 12.5);
  EXPECT_EQ(NuloParaZero(Variant(u"1.234,56")), 1234.56);
  EXPECT_EQ(NuloParaZero(Variant(u"abc")), 0);
  EXPECT_EQ(NuloParaZero(Variant(ObjectPtr())), 0);
}

}  // namespace
}  // namespace tessaria
