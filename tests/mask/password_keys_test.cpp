// Keys of a field whose box hides the typed text.
#include <gtest/gtest.h>

#include "mask/key_filter.h"
#include "tessaria/memory/application.h"
#include "tessaria/text.h"
#include "tests/mask/session.h"
#include "tests/mask/test_field.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(Password, TypedTextIsKeptBehindThePasswordCharacters) {
  Session(R"(
    mask XXXX
    password *
    show |
    a B 7 -> ***| ; texto aB7
    Back  -> **|* ; texto aB_
  )");
}

TEST(Password, EditsTheTypedText) {
  Session(R"(
    mask 0000
    password *
    value
    1 2 3 4 -> ****| ; texto 1234
    Back -> ***|* ; texto 123_
    9 -> ****| ; texto 1239
  )");
}

TEST(Password, LaysOutAValueAssignedWithoutItsLiterals) {
  Session(R"(
    mask XX-XX
    password *
    value abcd
    z -> *|**** ; texto zb-cd
  )");
}

TEST(Password, ACharacterPastALateLiteralIsNotPartOfTheText) {
  Session(R"(
    mask XXXX-X
    password *
    value
    s e n h -> ****| ; texto senh
    a -> ****a| ; texto senh ; key 97
    s -> *****| ; texto senhs ; key 0
  )");
  Session(R"(
    mask XX/XX/XX
    password *
    show |
    a b c d e -> *****| ; texto abcde
    f -> *****f| ; texto abcde ; key 102
    g -> ******| ; texto abcdeg ; key 0
  )");
  Session(R"(
    mask XXXXX-X
    password *
    show |
    a b c d e -> *****| ; texto abcde
    f -> *****f| ; texto abcde ; key 102
    g -> ******| ; texto abcdeg ; key 0
  )");
}

TEST(Password, AnXPastItsSlotIsNotPartOfTheText) {
  Session(R"(
    mask 0000
    password *
    value
    1 2 -> **|** ; texto 12__
    x -> **x|** ; texto 12__ ; key 120
    3 -> ****| ; texto 12_3 ; key 0
  )");
}

TEST(Password, LosesWhatTheBoxErasesWithoutTheFilter) {
  Session(R"(
    mask XXXX-X
    password *
    show |
    s e n h -> ****| ; texto senh
    Back -> ***| ; texto sen ; key 8
    z -> ****| ; texto senz
    a -> ****a| ; texto senz ; key 97
    s -> *****| ; texto senzs
    Left -> ****|* ; texto senzs
    Del -> ****| ; texto senz ; key 46
  )");
}

TEST(Password, ASelectionThatTheBoxReplacesIsRemoved) {
  Session(R"(
    mask XXXX-X
    password *
    show |
    s e n h a s -> *****| ; texto senhs
    Left ShiftLeft -> ***[*]* ; texto senhs
    ShiftLeft -> **[**]* ; texto senhs
    k -> ***|** ; texto sek_s
  )");
  Session(R"(
    mask 0000
    password *
    value 1234
    ShiftRight ShiftRight -> [**]** ; texto 1234
    x -> x|** ; texto 34 ; key 120
  )");
}

TEST(Password, F9DoesNotChangeTheSelectedText) {
  Session(R"(
    mask 0000
    password *
    value 1234
    ShiftRight ShiftRight -> [**]** ; texto 1234
    F9 -> [**]** ; texto 1234
  )");
}

TEST(Password, ABoxWithoutPasswordCharactersIsTakenAsItIs) {
  Session(R"(
    mask XXXXXX
    password *
    value
    show senha|
    s -> ******| ; texto senhas
  )");
  Session(R"(
    mask XXXXXX
    password *
    show |
    a b c -> ***| ; texto abc
    show |
    x -> *| ; texto x
  )");
}

TEST(Password, DigitsInsertedIntoANumberAreBetweenTheHiddenOnes) {
  Session(R"(
    mask $$$$$
    password *
    negative
    max 10
    value 123
    5 -> 5|*** ; texto 123
    Right Back -> 5|** ; texto 23
    - -> -5|23 ; texto 523
  )");
}

}  // namespace
}  // namespace tessaria
