#include "services/message_box.h"

#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlMsgBox {
namespace {

/// What each bit of the flags adds to the style of the box.
struct FlagStyle {
  Long flag;
  Long style;
};
constexpr FlagStyle kStyles[] = {{4, host::box::YesNo},
                                 {64, host::box::Exclamation},
                                 {32, host::box::Question},
                                 {16, host::box::Stop}};

Long StyleOf(Long flags) {
  Long style = host::box::Ok;
  for (const FlagStyle& row : kStyles) {
    if ((flags & row.flag) != 0) style += row.style;
  }
  return style;
}

}  // namespace

Long ExibeMensagem(Long varHwnd, const String& varTexto, Long intFlags, const String& varTitulo) {
  const Long answer = App().ShowMessageBox(varHwnd, varTexto, StyleOf(intFlags), varTitulo);
  const bool decided = answer == host::answer::Yes || answer == host::answer::No;
  return decided ? answer : host::answer::Ok;
}

}  // namespace tessaria::mdlMsgBox
