#include "services/message_box.h"

#include <gtest/gtest.h>

#include "tessaria/error.h"
#include "tessaria/memory/application.h"
#include "tessaria/thread_state.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

using mdlMsgBox::ExibeMensagem;
using memory::MessageBoxRecord;

struct StyleCase {
  Long flags;
  Long style;
};

TEST(ExibeMensagem, KeepsFourBitsOfTheFlags) {
  constexpr StyleCase kCases[] = {
      {0, 0},       {4, 4},   {16, 16},           {32, 32}, {64, 48},  {20, 20},
      {68, 52},     {36, 36}, {80, 64},           {48, 48}, {96, 80},  {116, 4 + 48 + 32 + 16},
      {256, 0},     {1, 0},   {4 + 256 + 32, 36}, {512, 0}, {4096, 0}, {2 + 8 + 128, 0},
      {-1, 4 + 96},
  };
  for (const StyleCase& row : kCases) {
    memory::Application app;
    ExibeMensagem(0, u"texto", row.flags);
    ASSERT_EQ(app.Boxes().size(), 1u);
    EXPECT_EQ(app.Boxes().front().Style, row.style) << "flags " << row.flags;
  }
}

TEST(ExibeMensagem, TheFlagsHaveNames) {
  EXPECT_EQ(mdlMsgBox::flag::YesNo, 4);
  EXPECT_EQ(mdlMsgBox::flag::Stop, 16);
  EXPECT_EQ(mdlMsgBox::flag::Question, 32);
  EXPECT_EQ(mdlMsgBox::flag::Information, 64);
}

TEST(ExibeMensagem, ShowsTextTitleAndOwner) {
  memory::Application app;
  ExibeMensagem(77, u"Não há registros", 16, u"Atenção !!!");
  EXPECT_EQ(app.TakeBoxes(),
            (std::vector{MessageBoxRecord{77, u"Não há registros", 16, u"Atenção !!!"}}));
}

TEST(ExibeMensagem, HasATitleOfItsOwn) {
  memory::Application app;
  ExibeMensagem(0, u"texto", 0);
  EXPECT_EQ(app.Boxes().front().Title, u"Alerta!");
}

TEST(ExibeMensagem, AnswersYesNoOrOne) {
  struct AnswerCase {
    Long given, expected;
  };
  for (const AnswerCase& row : {AnswerCase{6, 6}, {7, 7}, {1, 1}, {2, 1}, {0, 1}, {3, 1}}) {
    memory::Application app;
    app.WillAnswer(row.given);
    EXPECT_EQ(ExibeMensagem(0, u"Confirma?", 4 + 32), row.expected) << "answer " << row.given;
  }
}

TEST(ExibeMensagem, AClosedYesNoBoxMeansNo) {
  memory::Application app;
  EXPECT_EQ(ExibeMensagem(0, u"Confirma?", 4), 7);
}

TEST(ExibeMensagem, NeedsAHost) {
  ASSERT_EQ(State().application, nullptr);
  EXPECT_HOST_ERROR(ExibeMensagem(0, u"texto", 0), errors::ObjectNotSet);
}

}  // namespace
}  // namespace tessaria
