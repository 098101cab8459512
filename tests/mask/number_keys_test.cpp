#include "mask/number_keys.h"

#include <gtest/gtest.h>

#include "tests/mask/session.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

// A box of 10 characters with two decimals has room for 6 integer digits: "123.456,78".

TEST(NumberDigits, AreInsertedByTheBox) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show |
    1 2 3 -> 123| ; key 51
    show 1|3
    2 -> 12|3
    a / Space -> 12|3 ; key 0
  )");
}

TEST(NumberDigits, AtCapacityRefuseTheIntegerPartOnly) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show 123456|
    7 -> 123456| ; beep ; key 0
    , -> 123456,|
    7 8 9 -> 123456,789|
    0 -> 123456,789| ; key 48
    show 1|23456,7
    9 -> 1|23456,7 ; beep
    show 123456|,7
    9 -> 123456|,7 ; beep
  )");
}

TEST(NumberDigits, ReplaceASelection) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show 12[345]6
    7 -> 127|6
    show [123456,78]
    9 -> 9|
  )");
}

TEST(NumberDigits, SelectionThatSpansTheCommaCountsAsIfTheCommaStayed) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show 12345[6,7]89
    0 -> 123450|89
    show 123456[,7]8
    0 -> 123456[,7]8 ; beep
  )");
}

TEST(NumberDigits, ReplacingASelectionFromTheCommaToTheEndKeepNoComma) {
  // The comma counts for the limit, but the box replaces it with the selection.
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show 12345[6,78]
    9 -> 123459|
    show 123456[,78]
    9 -> 123456[,78] ; beep ; key 0
  )");
}

TEST(NumberBackspace, OfASelectionRightAfterTheCommaIsRefusedLikeTheComma) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show 12345,[67]
    Back -> 12345,[67] ; beep ; key 0
    show 1234,[67]
    Back -> 1234,| ; key 8
  )");
}

TEST(NumberDigits, HaveNoLimitWithoutMaxLength) {
  Session(R"(
    mask $$$.$$
    show 1234567|
    8 9 -> 123456789|
  )");
}

TEST(NumberDigits, LettersKAndMGoToTheBoxLikeDigits) {
  Session(R"(
    mask $$$$
    show 1|
    k m -> 1km| ; key 109
  )");
}

TEST(NumberComma, IsInsertedOnce) {
  Session(R"(
    mask $$$$$.$$
    show 12|50
    , -> 12,|50 ; key 0 ; texto
    show 12|50
    . -> 12,|50 ; key 0
  )");
}

TEST(NumberComma, MovesAfterACommaToTheRightAndBeepsForOneToTheLeft) {
  Session(R"(
    mask $$$$$.$$
    show |12,50
    , -> 12,|50
    , -> 12,|50 ; beep
    show 12|,50
    . -> 12,|50 ; key 0
    show 12,50|
    . -> 12,50| ; beep ; key 0
  )");
}

TEST(NumberComma, KeepsTheSelectedText) {
  Session(R"(
    mask $$$$$.$$
    show 1[25]0
    , -> 1,|250
  )");
}

TEST(NumberComma, ThatHasNoRoomIsRefused) {
  Session(R"(
    mask $$$$$.$$
    max 5
    value 1234
    show 1234|5
    , -> 1234|5 ; beep ; key 0 ; texto 1234
    . -> 1234|5 ; beep ; key 0
    show [123456]
    , -> [123456] ; beep ; key 0
    show 123|4
    , -> 123,|4
  )");
}

TEST(NumberBackspace, IsLeftToTheBox) {
  Session(R"(
    mask $$$$$.$$
    max 9
    show 12,5|0
    Back -> 12,|0 ; key 8
    Back -> 12|0
  )");
}

TEST(NumberBackspace, KeepsTheCommaOfALongNumber) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show 12345,|67
    Back -> 12345,|67 ; beep ; key 0
    show 1234,|67
    Back -> 1234|67 ; key 8
  )");
}

TEST(NumberBackspace, AtTheStartCountsAsADigit) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show |12345
    Back -> |12345 ; key 8
    show |123456
    Back -> |123456 ; beep ; key 0
    show [123456]
    Back -> | ; key 8
  )");
}

TEST(NumberMinus, NeedsAFieldThatAcceptsNegativeValues) {
  Session(R"(
    mask $$$$$.$$
    max 10
    show 12|,50
    - -> 12|,50 ; beep ; key 0 ; texto 12,50
    + -> 12|,50 ; beep ; key 0
  )");
}

TEST(NumberMinus, IsPutInFrontAndRemovedAgain) {
  Session(R"(
    mask $$$$$.$$
    max 10
    negative
    show 12|,50
    - -> -12|,50 ; texto 12,50 ; key 0
    - -> -12|,50 ; beep ; key 0
    + -> 12|,50 ; texto -12,50 ; key 0
    + -> 12|,50 ; key 0
    show |12
    - -> -|12
    show |-12
    + -> |12
  )");
}

TEST(NumberMinus, ReplacesAWholeSelection) {
  Session(R"(
    mask $$$$$.$$
    max 10
    negative
    show [12,50]
    - -> -| ; texto
    show |
    - -> -|
  )");
}

TEST(NumberMinus, KeepsTheFirstCharacterOfASelection) {
  Session(R"(
    mask $$$$$.$$
    max 10
    negative
    show 1[234]5
    - -> -1|25 ; texto 125
    show -1[234]5
    + -> 1|25 ; texto -125
  )");
}

TEST(NumberMinus, PlusOverAWholeSelectionKeepsItsFirstCharacter) {
  Session(R"(
    mask $$$$$.$$
    max 10
    negative
    show [-12]
    + -> | ; texto -
  )");
}

TEST(NumberMinus, IsRefusedAtCapacity) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    negative
    show 12345|,67
    - -> -12345|,67
    show 123456|,78
    - -> 123456|,78 ; beep
    show 123456|
    - -> 123456| ; beep
  )");
}

TEST(NumberMinus, ThatHasNoRoomIsRefusedAndLeavesTheTypedText) {
  Session(R"(
    mask $$$$$.$$
    max 6
    negative
    value 7
    show 12,345|
    - -> 12,345| ; beep ; key 0 ; texto 7
    show 12,3456789|
    - -> 12,3456789| ; beep ; key 0 ; texto 7
    show 1[,34]5
    - -> -1|,5 ; texto 1,5
    value -12,3456789
    show -12,3456789|
    + -> 12,3456789| ; key 0
  )");
}

TEST(NumberMinus, ChangesTheTypedTextEvenWhenTheKeyIsRefused) {
  // The typed text loses the rest of the selection, but the box keeps it.
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show 1[23]4
    - -> 1[23]4 ; beep ; texto 124
    show 5[67]8
    + -> 5[67]8 ; beep ; texto 568
    negative
    show 123456[,7]8
    - -> 123456[,7]8 ; beep ; texto 123456,8
    show -1[23]4
    - -> -1[23]4 ; beep ; texto -124
    show 1[23]5
    + -> 1[23]5 ; key 0 ; texto 125
  )");
}

TEST(NumberMinus, IsAlwaysRefusedWithoutMaxLength) {
  Session(R"(
    mask $$$$$.$$
    negative
    show |
    - -> | ; beep
  )");
}

TEST(NumberDigits, MayExceedMaxLengthAndAreDeletedOneByOne) {
  Session(R"(
    mask $$$$$$$.$$
    max 5
    show 12345,67|
    Back -> 12345,6| ; key 8
    8 -> 12345,6| ; key 56
    show 12|345,67
    Del -> 12|45,67 ; key 46
    9 -> 12|45,67 ; beep ; key 0
  )");
}

TEST(NumberDigits, WithAMaxLengthBeyondSixteenBitsRaiseAnErrorAndReachTheBox) {
  Session(R"(
    mask $$$.$$
    max 32768
    show |
    1 -> 1| ; error 6 ; key 49
  )");
}

TEST(NumberKeys, AlsoWorkInADollarSlotOfAnotherMask) {
  // The box types the digit by itself, without a limit.
  Session(R"(
    mask 0$0
    show 1|__
    5 -> 15|__ ; key 53
    show 1|__
    , -> 1,|__
  )");
}

// --- Behind password characters
// -------------------------------------------------------------------

TEST(NumberPassword, TheCommaIsThatOfTheNumber) {
  Session(R"(
    mask $$$$$$$.$$
    max 12
    password *
    value 12,5
    , -> ***|** ; texto 12,5
    , -> ***|** ; beep
  )");
}

TEST(NumberPassword, ASignComposesTheNumberItself) {
  Session(R"(
    mask $$$$$$$.$$
    max 12
    negative
    password *
    value 12,50
    - -> -|12,50 ; texto 12,50
    + -> |12,50 ; texto -12,50
  )");
}

// What the operator types into the box is shown as it is.
TEST(NumberPassword, TypedDigitsAreTakenAsTheyAre) {
  Session(R"(
    mask $$$$$$$.$$
    max 12
    password *
    1 2 -> 12|
    , -> 12,|
    5 -> 12,5|
  )");
}

}  // namespace
}  // namespace tessaria
