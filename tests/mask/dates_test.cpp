#include "mask/dates.h"

#include <gtest/gtest.h>

#include "tessaria/masks.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

struct DateCase {
  String mask, text;
  bool valid;
  String after;
};

const DateCase kDates[] = {
    // An empty date is valid and does not change.
    {u"dd/mm/yyyy", u"__/__/____", true, u"__/__/____"},
    {u"00/00/0000", u"__/__/____", true, u"__/__/____"},
    {u"dd/mm/yyyy", u"", true, u""},
    // Whole dates.
    {u"dd/mm/yyyy", u"25/12/2017", true, u"25/12/2017"},
    {u"dd/mm/yyyy", u"31/12/9999", true, u"31/12/9999"},
    {u"mm/yyyy", u"12/2017", true, u"12/2017"},
    // Two-digit years: up to 40 they are of this century.
    {u"dd/mm/yy", u"01/01/40", true, u"01/01/2040"},
    {u"dd/mm/yy", u"01/01/41", true, u"01/01/1941"},
    {u"dd/mm/yy", u"01/01/10", true, u"01/01/2010"},
    {u"dd/mm/yy", u"01/01/05", true, u"01/01/2005"},
    {u"dd/mm/yy", u"01/01/00", true, u"01/01/2000"},
    {u"dd/mm/yy", u"01/01/99", true, u"01/01/1999"},
    {u"mm/yy", u"12/17", true, u"12/2017"},
    {u"mm/yy", u"02/41", true, u"02/1941"},
    // One-digit years.
    {u"dd/mm/yy", u"01/01/9_", true, u"01/01/2009"},
    {u"dd/mm/yy", u"01/01/7_", true, u"01/01/2007"},
    {u"dd/mm/yy", u"01/01/0_", true, u"01/01/2000"},
    {u"dd/mm/yyyy", u"01/01/17__", true, u"01/01/2017"},
    // Three-digit years become five-digit years.
    {u"dd/mm/yyyy", u"01/01/123_", false, u"01/01/123_"},
    {u"dd/mm/yyyy", u"01/01/012_", false, u"01/01/012_"},
    // Blanks after a year are removed when the mask has a day, and count when it has none.
    {u"dd/mm/yyyy", u"01/12/17  ", true, u"01/12/2017"},
    {u"mm/yyyy", u"12/17  ", true, u"12/17  "},
    // Partly typed.
    {u"dd/mm/yyyy", u"12/__/____", false, u"12/__/____"},
    {u"dd/mm/yyyy", u"25/12/____", false, u"25/12/____"},
    {u"mm/yyyy", u"12/____", false, u"12/____"},
    {u"dd/mm/yyyy", u"5", false, u"5"},
    // Days and months.
    {u"dd/mm/yyyy", u"00/01/2017", false, u"00/01/2017"},
    {u"dd/mm/yyyy", u"32/01/2017", false, u"32/01/2017"},
    {u"dd/mm/yyyy", u"01/00/2017", false, u"01/00/2017"},
    {u"dd/mm/yyyy", u"01/13/2017", false, u"01/13/2017"},
    {u"mm/yyyy", u"13/2017", false, u"13/2017"},
    {u"dd/mm/yyyy", u"30/04/2017", true, u"30/04/2017"},
    {u"dd/mm/yyyy", u"31/04/2017", false, u"31/04/2017"},
    {u"dd/mm/yyyy", u"31/06/2017", false, u"31/06/2017"},
    {u"dd/mm/yyyy", u"31/09/2017", false, u"31/09/2017"},
    {u"dd/mm/yyyy", u"31/11/2017", false, u"31/11/2017"},
    {u"dd/mm/yyyy", u"31/01/2017", true, u"31/01/2017"},
    // February: every fourth year is a leap year, 1900 too.
    {u"dd/mm/yyyy", u"29/02/2016", true, u"29/02/2016"},
    {u"dd/mm/yyyy", u"29/02/1900", true, u"29/02/1900"},
    {u"dd/mm/yyyy", u"29/02/2001", false, u"29/02/2001"},
    {u"dd/mm/yyyy", u"28/02/2001", true, u"28/02/2001"},
    {u"dd/mm/yyyy", u"30/02/2016", false, u"30/02/2016"},
    // A month with a fill character is read by its value, but is not recognised as a short month.
    {u"dd/mm/yyyy", u"31/4_/2017", true, u"31/4_/2017"},
    {u"dd/mm/yyyy", u"1_/01/2017", true, u"1_/01/2017"},
    // With other masks, also with capitals, only the empty date is valid.
    {u"00/00/0000", u"25/12/2017", false, u"25/12/2017"},
    {u"00/00", u"25/12", false, u"25/12"},
};

TEST(ChecaData, RecognisesDatesAndExpandsTheirYears) {
  for (const DateCase& row : kDates) {
    memory::TextBox box;
    box.Text(row.text);
    const String items = mdlObjTxt::MontaItensMascara(row.mask, u"_");
    const std::string name = ToUtf8(row.mask) + " of " + ToUtf8(row.text);
    EXPECT_EQ(mdlObjTxt::ChecaData(box, row.mask, items), row.valid) << name;
    EXPECT_EQ(box.Text(), row.after) << name;
  }
}

TEST(ChecaData, MasksInCapitalsAreNotDateMasks) {
  memory::TextBox box;
  box.Text(u"25/12/2017");
  EXPECT_FALSE(mdlObjTxt::ChecaData(box, u"DD/MM/YYYY", u"_/"));
}

}  // namespace
}  // namespace tessaria
