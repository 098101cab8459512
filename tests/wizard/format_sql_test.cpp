// The expressions that show fields with the literals of a mask.
#include "wizard/format_sql.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

using wizard::FormatSql;

struct MaskCase {
  const char16_t* campo;
  const char16_t* mascara;
  const char16_t* dbms;
  const char16_t* expected;
};

const MaskCase kMasks[] = {
    {u"Cliente.Cep", u"#####-###", u"ACCESS",
     u"Mid(Cliente.Cep,  1,  5) & '-' & Mid(Cliente.Cep,  6,  3) & ''"},
    {u"Cliente.Cep", u"#####-###", u"Microsoft SQL Server",
     u"Substring(Cliente.Cep,  1,  5) & '-' & Substring(Cliente.Cep,  6,  3) & ''"},
    {u"Cliente.Cep", u"#####-###", u"POSTGRESQL",
     u"Substring(Cliente.Cep,  1,  5) || '-' || Substring(Cliente.Cep,  6,  3) || ''"},
    {u"cep", u"##-#", u"PostgreSQL",
     u"Substring(cep,  1,  2) || '-' || Substring(cep,  3,  1) || ''"},
    {u"Fone", u"(##) ####", u"ACCESS", u"'(' & Mid(Fone,  1,  2) & ') ' & Mid(Fone,  3,  4) & ''"},
    // Only places: one piece and an empty text.
    {u"Cep", u"#", u"ACCESS", u"Mid(Cep,  1,  1) & ''"},
    {u"Cep", u"########", u"ACCESS", u"Mid(Cep,  1,  8) & ''"},
    // Nothing: a piece of no length.
    {u"Cep", u"", u"ACCESS", u"Mid(Cep,  1,  0) & ''"},
    // A leading literal of several characters stands alone; with a blank at an end it does not.
    {u"Cep", u"CEP:##", u"ACCESS", u"'CEP:' & Mid(Cep,  1,  2) & ''"},
    {u"Cep", u"C E#", u"ACCESS", u"'C E' & Mid(Cep,  1,  1) & ''"},
    {u"Cep", u"CEP: ##", u"ACCESS", u"Mid(Cep,  1,  0) & 'CEP: ' & Mid(Cep,  1,  2) & ''"},
    {u"Cep", u" #", u"ACCESS", u"Mid(Cep,  1,  0) & ' ' & Mid(Cep,  1,  1) & ''"},
    // Every literal behind a place is one of a piece.
    {u"n", u"###.###.###-##", u"ACCESS",
     u"Mid(n,  1,  3) & '.' & Mid(n,  4,  3) & '.' & Mid(n,  7,  3) & '-' & Mid(n,  10,  2) & ''"},
    // A whole expression in the place of a field.
    {u"Str(a.b)", u"#-#", u"ACCESS", u"Mid(Str(a.b),  1,  1) & '-' & Mid(Str(a.b),  2,  1) & ''"},
    // Literals are not changed.
    {u"n", u"#'#", u"ACCESS", u"Mid(n,  1,  1) & ''' & Mid(n,  2,  1) & ''"},
    // An unknown database has neither function nor operator.
    {u"n", u"#-#", u"Oracle", u"(n,  1,  1)  '-'  (n,  2,  1)  ''"},
    {u"n", u"#", u"MS JET", u"(n,  1,  1)  ''"},
};

TEST(FormatSql, TheLiteralsOfAMaskStandBetweenPiecesOfTheValue) {
  for (const MaskCase& row : kMasks)
    EXPECT_EQ(FormatSql(row.campo, row.mascara, row.dbms), row.expected);
}

TEST(FormatSql, AMaskMustEndInAPlace) {
  for (const char16_t* mask : {u"-", u"#-", u"(##)", u"### ", u"sem lugar"}) {
    try {
      FormatSql(u"n", mask, u"ACCESS");
      ADD_FAILURE() << "no error";
    } catch (const HostError& error) {
      EXPECT_EQ(error.Number(), errors::InvalidArgument);
      EXPECT_EQ(error.Description(), u"A máscara \"" + String(mask) + u"\" deve terminar em #.");
    }
  }
}

}  // namespace
}  // namespace tessaria::test
