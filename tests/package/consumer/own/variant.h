// A header of the program itself, with a name that the library uses internally.
#pragma once
#define OWN_VARIANT_H 1
