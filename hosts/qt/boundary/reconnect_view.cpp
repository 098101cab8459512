#include "hosts/qt/boundary/reconnect_view.h"

#include "hosts/qt/boundary/operator_action.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt {
namespace {

constexpr StringView kQuestion = u"A conexão com o banco de dados foi perdida. Conectar novamente?";
constexpr StringView kTitle = u"Banco de dados";

bool ask() {
  constexpr Long kStyle = host::box::YesNo + host::box::Question;
  try {
    const Long answer = App().ShowMessageBox(0, String(kQuestion), kStyle, String(kTitle));
    return answer == host::answer::Yes;
  } catch (...) {
    return false;  // whoever asks fails with the error of the lost connection
  }
}

}  // namespace

Long ReconnectView::Action() { return presentAction(); }

bool ReconnectView::Allows() {
  const Long action = presentAction();
  if (action == answeredIn_) return answer_;
  answeredIn_ = action;
  answer_ = false;
  answer_ = ask();
  return answer_;
}

}  // namespace tessaria::qt
