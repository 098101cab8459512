// The state that the controls of a thread share.
#include "tessaria/thread_state.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(ThreadStates, StartWithNothing) {
  std::thread([] {
    EXPECT_EQ(State().application, nullptr);
    EXPECT_EQ(State().desktop, nullptr);
    EXPECT_EQ(State().dbConexao, nullptr);
    EXPECT_SAME(State().vntValorIrmao, Variant::Null());
  }).join();
}

TEST(ThreadStates, AreOnePerThread) {
  State().vntValorIrmao = Variant(u"'7'");
  ThreadState* mine = &State();
  std::thread([mine] {
    EXPECT_NE(&State(), mine);
    EXPECT_SAME(State().vntValorIrmao, Variant::Null());
  }).join();
  EXPECT_EQ(&State(), mine);
  EXPECT_SAME(State().vntValorIrmao, u"'7'");
  State().vntValorIrmao = Variant::Null();
}

TEST(HostServices, AreAnErrorWhenNoHostIsInstalled) {
  ASSERT_EQ(State().application, nullptr);
  EXPECT_HOST_ERROR(App(), errors::ObjectNotSet);
}

TEST(HostServices, BelongToTheThread) {
  // The services are only passed on here, never used.
  int place = 0;
  auto* application = reinterpret_cast<host::Application*>(&place);
  State().application = application;
  EXPECT_EQ(&App(), application);
  std::thread([] { EXPECT_HOST_ERROR(App(), errors::ObjectNotSet); }).join();
  State().application = nullptr;
}

TEST(Desktops, BelongToTheThreadAndAreAnErrorWithoutOne) {
  EXPECT_HOST_ERROR(TheDesktop(), errors::ObjectNotSet);
  int place = 0;
  auto* desktop = reinterpret_cast<host::Desktop*>(&place);
  State().desktop = desktop;
  EXPECT_EQ(&TheDesktop(), desktop);
  std::thread([] { EXPECT_HOST_ERROR(TheDesktop(), errors::ObjectNotSet); }).join();
  State().desktop = nullptr;
}

}  // namespace
}  // namespace tessaria
