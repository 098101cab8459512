// Checks that a program attaches to a field: CPF, CNPJ, or one of its own.
#pragma once

#include <functional>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// Checks what the operator has written when the field is left. It gets the typed characters
/// without the mask's literals, never a blank text, and returns why they are refused: the end of a
/// message that begins with the field's caption. An empty text accepts them.
using Validator = std::function<String(const String& text)>;

/// Whether a text is a CPF with the right check digits; ".", "-" and blanks in it are ignored.
/// Eleven equal digits are none, although their check digits are right.
TESSARIA_CORE_API bool IsCpf(StringView text);

/// Whether a text is a CNPJ with the right check digits; ".", "/", "-" and blanks in it are
/// ignored. Its first twelve characters are digits or letters, in capitals or not; a CNPJ without
/// letters is checked as before these were introduced in July 2026. Equal digits throughout are
/// none.
TESSARIA_CORE_API bool IsCnpj(StringView text);

/// Refuse what is not one with "não confere, Verifique Por Favor".
TESSARIA_CORE_API Validator CpfValidator();
/// Refuses what is no CNPJ with the same words.
TESSARIA_CORE_API Validator CnpjValidator();
/// Takes either: eleven characters are a CPF, more are a CNPJ.
TESSARIA_CORE_API Validator CpfOrCnpjValidator();

}  // namespace tessaria
