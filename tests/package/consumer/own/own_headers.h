// Headers of the program's own come first, and none of them stands in for one of the library's.
#pragma once

#include "control/button.h"
#include "control/tstext.h"
#include "error.h"
#include "lookup/dialect.h"
#include "mask/masks.h"
#include "runtime/text.h"
#include "text.h"
#include "variant.h"

#if !OWN_CONTROL_BUTTON_H || !OWN_CONTROL_TSTEXT_H || !OWN_ERROR_H || !OWN_LOOKUP_DIALECT_H || \
    !OWN_MASK_MASKS_H || !OWN_RUNTIME_TEXT_H || !OWN_TEXT_H || !OWN_VARIANT_H
#error "a header of the library stands in for one of the program"
#endif

#if __has_include("runtime/digits.h") || __has_include("hosts/qt/form/form.h")
#error "an internal header of the library can be included"
#endif
