// The lists from which codes are chosen, and the pairs of a code and its description.
#pragma once

#include <vector>

#include "tessaria/string.h"

namespace tessaria::qt {
class TsText;
}

namespace tessaria::demo {

/// A column of a list. The first two are the code and the description.
struct ListColumn {
  StringView field;  ///< as it is selected
  StringView caption;
  StringView format;
  float width;  ///< twips; 0 hides the column
};

/// How a search compares.
enum class Match { Equal = 0, BeginsWith = 1, Contains = 3, AtLeast = 5, AtMost = 7 };

/// A search of a list. Those of one number are asked one after the other and must all match.
struct ListSearch {
  enum Kind { Number = 2, Date = 7, Text = 8 };

  int number;  ///< from 1, as the menu shows them
  StringView caption;
  StringView field;
  Kind kind;
  Match match;
  StringView mask;  ///< a date needs one
  short width;      ///< twips
  short length;     ///< most characters
  bool completes = false;
};

struct Lookup {
  StringView title;
  StringView table;
  StringView from;   ///< the table with its joins; empty for the table alone
  StringView where;  ///< "@name@" stands for the value of a field of the form
  std::vector<ListColumn> columns;
  std::vector<ListSearch> searches;
  std::vector<StringView> returned;  ///< fields that a program reads by `returned()`
};

const Lookup& customersLookup();
/// Only the cities of the state in the form's field "uf", when that holds one.
const Lookup& citiesLookup();
const Lookup& paymentTermsLookup();
const Lookup& productsLookup();
const Lookup& statesLookup();

/// Makes two fields that name each other a pair over the lookup.
void useLookup(const Lookup& lookup, qt::TsText* code, qt::TsText* description);

/// Clears the city when the state changes to another one, and sets an empty state when a city is
/// chosen.
void keepCityInState(qt::TsText* state, qt::TsText* city);

}  // namespace tessaria::demo
