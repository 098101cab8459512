#include "apps/demo/messages.h"

#include "tessaria/host/application.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::demo {
namespace {

Long show(const QString& text, Long style) {
  return App().ShowMessageBox(0, qt::fromQt(text), style, u"Mesa de pedidos");
}

}  // namespace

void tell(const QString& text) { show(text, host::box::Exclamation); }
void warn(const QString& text) { show(text, host::box::Stop); }
bool ask(const QString& text) {
  const Long style = host::box::YesNo + host::box::Question + host::box::DefaultNo;
  return show(text, style) == host::answer::Yes;
}

}  // namespace tessaria::demo
