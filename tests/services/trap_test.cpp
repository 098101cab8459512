#include "services/trap.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tessaria/memory/application.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

using memory::MessageBoxRecord;

TEST(MostraErro, ShowsErrorModuleAndProcedure) {
  memory::Application app;
  Err().Set(HostError(13));
  mdlError::MostraErro(u"AchaDescr", u"mdlObjTxt");
  Err().Clear();
  EXPECT_EQ(app.TakeBoxes(),
            (std::vector{MessageBoxRecord{0, ErrorDescription(13), 16,
                                          u"Erro: 13 - Função: mdlObjTxt.AchaDescr"}}));
}

TEST(MostraErro, ShowsADriversNumberAndText) {
  memory::Application app;
  Err().Set(HostError(-2147467259, u"conexão perdida"));
  mdlError::MostraErro(u"btnBrowse_Click", u"tsText");
  Err().Clear();
  EXPECT_EQ(app.TakeBoxes(),
            (std::vector{MessageBoxRecord{0, u"conexão perdida", 16,
                                          u"Erro: -2147467259 - Função: tsText.btnBrowse_Click"}}));
}

TEST(Trap, RunsTheBodyToItsEnd) {
  memory::Application app;
  int runs = 0;
  EXPECT_TRUE(Trap(u"tsText", u"Valida", [&] { ++runs; }));
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(app.Boxes().empty());
}

TEST(Trap, ReportsTheErrorAndReturns) {
  memory::Application app;
  bool reached = false;
  EXPECT_FALSE(Trap(u"tsText", u"Valida", [&] {
    throw HostError(5, u"argumento");
    reached = true;
  }));
  EXPECT_FALSE(reached);
  EXPECT_EQ(
      app.TakeBoxes(),
      (std::vector{MessageBoxRecord{0, u"argumento", 16, u"Erro: 5 - Função: tsText.Valida"}}));
}

TEST(Trap, ClearsTheErrorWhenItReturns) {
  memory::Application app;
  Trap(u"tsText", u"Valida", [] { throw HostError(5, u"argumento"); });
  EXPECT_EQ(Err().Number, 0);
  EXPECT_EQ(Err().Description, u"");
}

TEST(Trap, LeavesTheErrorThatACallerIsReporting) {
  memory::Application app;
  Long afterwards = 0;
  Catch([] { throw HostError(9); },
        [&] {
          Trap(u"tsText", u"dentro", [] { throw HostError(5); });
          afterwards = Err().Number;
        });
  EXPECT_EQ(afterwards, 9);
  EXPECT_EQ(Err().Number, 0);
}

TEST(Trap, InnerTrapKeepsTheErrorFromTheOuter) {
  memory::Application app;
  EXPECT_TRUE(
      Trap(u"tsText", u"fora", [] { Trap(u"tsText", u"dentro", [] { throw HostError(6); }); }));
  ASSERT_EQ(app.Boxes().size(), 1u);
  EXPECT_EQ(app.Boxes().front().Title, u"Erro: 6 - Função: tsText.dentro");
}

TEST(Trap, DoesNotCatchOtherExceptions) {
  memory::Application app;
  EXPECT_THROW(Trap(u"tsText", u"Valida", [] { throw std::logic_error("ours"); }),
               std::logic_error);
  EXPECT_TRUE(app.Boxes().empty());
}

TEST(Catch, HandlerSeesTheError) {
  Long seen = 0;
  EXPECT_FALSE(Catch([] { throw HostError(91); }, [&] { seen = Err().Number; }));
  EXPECT_EQ(seen, 91);
  EXPECT_EQ(Err().Number, 0);
}

TEST(Catch, TheHandlerDoesNotRunWithoutAnError) {
  bool handled = false;
  EXPECT_TRUE(Catch([] {}, [&] { handled = true; }));
  EXPECT_FALSE(handled);
}

TEST(Catch, ClearsTheErrorWhenTheHandlerThrows) {
  EXPECT_THROW(Catch([] { throw HostError(91); }, [] { throw HostError(5); }), HostError);
  EXPECT_EQ(Err().Number, 0);
}

}  // namespace
}  // namespace tessaria
