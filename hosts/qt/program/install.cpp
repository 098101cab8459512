// Makes the program the host of its thread.

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <utility>

#include "hosts/qt/boundary/operator_action.h"
#include "hosts/qt/boundary/reconnect_view.h"
#include "hosts/qt/boundary/wait_view.h"
#include "hosts/qt/dialogs/desktop.h"
#include "hosts/qt/program/application.h"
#include "hosts/qt/program/form_events.h"
#include "tessaria/qt/data_layer.h"
#include "tessaria/qt/design_time.h"
#include "tessaria/qt/host.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt {
namespace {

void loadTranslation(QObject* owner) {
  auto* translator = new QTranslator(owner);
  if (translator->load(QStringLiteral("qtbase_pt_BR"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(translator);
}

/// Windows must go before the application does, and the wizard's stays loaded between its runs.
void unloadWizard() { State().frmMontaSql = nullptr; }

}  // namespace

Host::Host(QObject* parent)
    : QObject(parent),
      application_(std::make_unique<Application>(
          Application::Listener{[this](const QString& text, const QString& title, int style) {
                                  emit boxShown(text, title, style);
                                },
                                [this] { emit beeped(); }})),
      desktop_(std::make_unique<Desktop>()),
      waiting_(std::make_unique<WaitView>()),
      reconnecting_(std::make_unique<ReconnectView>()) {
  if (!isDesigner()) loadTranslation(this);
  new FormEvents(this);
  new ActionWatch(this);  // the last filter is the first to see an event
  State().application = application_.get();
  State().desktop = desktop_.get();
  State().waiting = waiting_.get();
  State().reconnecting = reconnecting_.get();
  qAddPostRoutine(unloadWizard);
}

Host::~Host() {
  if (State().application == application_.get()) State().application = nullptr;
  if (State().desktop == desktop_.get()) State().desktop = nullptr;
  if (State().waiting == waiting_.get()) State().waiting = nullptr;
  if (State().reconnecting == reconnecting_.get()) State().reconnecting = nullptr;
}

Host& install() {
  Q_ASSERT_X(qApp, "tessaria::qt::install", "a QApplication must exist");
  if (auto* host = qApp->findChild<Host*>({}, Qt::FindDirectChildrenOnly)) return *host;
  return *new Host(qApp);
}

void setDataLayer(DataLayer layer) {
  static_cast<Application&>(install().application()).setDataLayer(std::move(layer));
}

}  // namespace tessaria::qt
