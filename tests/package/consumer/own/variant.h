// A header of the program's own, of a name that the library uses inside.
#pragma once
#define OWN_VARIANT_H 1
