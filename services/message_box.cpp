#include "services/message_box.h"

#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlMsgBox {
namespace {

/// What each bit of the flags adds to the style of the box.
struct FlagStyle {
  Long bit;
  Long style;
};
constexpr FlagStyle kStyles[] = {{flag::YesNo, host::box::YesNo},
                                 {flag::Stop, host::box::Stop},
                                 {flag::Question, host::box::Question},
                                 {flag::Information, host::box::Exclamation}};

Long StyleOf(Long flags) {
  Long style = host::box::Ok;
  for (const FlagStyle& row : kStyles) {
    if ((flags & row.bit) != 0) style += row.style;
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
