// The mask language: the parts of a mask, and how a text is put into its mask and taken out of it.
//
// A mask character of "0#dmyAaC$XN" is a slot, every other one a literal that the box shows at its
// place. The first character selects the family: "$" numbers, "N" two-sided, any other left to
// right. Positions count from 1.
#pragma once

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// The item set of a mask: the fill character and the literals of the mask, each once.
TESSARIA_CORE_API String MontaItensMascara(const String& mask, const String& fill);

/// Whether the character at a position of the text is in the item set; false past the end. Error 5
/// for a position below 1.
TESSARIA_CORE_API bool EhItemMascara(const String& text, Integer position, const String& items);

/// The text without every character of the item set, wherever it stands; with an empty mask the
/// text unchanged.
TESSARIA_CORE_API String LimpaMascara(const String& text, const String& mask, const String& items);

/// The value laid out in the mask, as the box shows it. Null counts as "". With a password the
/// result is its first character, repeated to the length of the laid-out text. Errors as for CStr;
/// 7 for a numeric mask whose suffix would have millions of characters.
TESSARIA_CORE_API String AplicaMascara(const Variant& value, const String& mask, const String& fill,
                                       const String& items, const String& password);

/// The number of markers right after the first separator; 0 without a separator. A text that ends
/// with the separator counts as one.
TESSARIA_CORE_API Integer ContaDecimais(const String& text, const String& separator,
                                        const String& marker);

/// The number format of a numeric mask. The flag says that the mask holds a "."; it has no effect.
TESSARIA_CORE_API String FormatoNumero(const String& mask, bool flag);

/// The most integer digits that a numeric mask takes in a box of `MaxLength` characters, so that
/// the formatted number with its points still fits. A `MaxLength` of 0 does not mean "no limit"
/// here: the result is then 0 or below. Error 6 for a length or an intermediate result beyond 16
/// bits.
TESSARIA_CORE_API Integer CapacidadeInteira(const String& mask, Long MaxLength);
/// Whether the number without its comma would have too many integer digits. Errors as above.
TESSARIA_CORE_API bool CommaRemovalOverflows(const String& text, const String& mask,
                                             Long MaxLength);

/// Whether the mask makes its field a number.
TESSARIA_CORE_API bool IsNumericMask(const String& mask);

/// The date parts that a mask holds.
enum class DateForm {
  None,          ///< not a date
  DayMonthYear,  ///< "dd/mm/yyyy", "dd/mm/yy"
  MonthYear,     ///< "mm/yyyy", "mm/yy"
  EmptyOnly,     ///< "00/00/0000": a date, but only the empty one is valid
};
/// The form of a date mask in this exact case.
TESSARIA_CORE_API DateForm DateFormOf(const String& mask);
/// Whether validation treats the mask as a date; without regard to case.
TESSARIA_CORE_API bool IsDateMask(const String& mask);

}  // namespace tessaria::mdlObjTxt
