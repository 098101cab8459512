#include "hosts/qt/boundary/wait_view.h"

#include <QApplication>
#include <QLabel>
#include <QLocale>
#include <utility>

#include "hosts/qt/boundary/operator_action.h"
#include "hosts/qt/boundary/wait_input.h"
#include "hosts/qt/boundary/window_in_front.h"
#include "tessaria/qt/event_boundary.h"

namespace tessaria::qt {
namespace {

constexpr std::chrono::seconds kSilence{2};
constexpr int kStep = 20;  // milliseconds

struct Purpose {
  host::Awaited what;
  const char* text;
};

constexpr Purpose kPurposes[] = {
    {host::Awaited::Connection, "Conectando ao banco de dados..."},
    {host::Awaited::Rows, "Lendo registros..."},
    {host::Awaited::Count, "Contando os registros..."},
    {host::Awaited::LastRow, "Indo para o último registro..."},
    {host::Awaited::Match, "Procurando..."},
    {host::Awaited::Order, "Ordenando..."},
    {host::Awaited::Write, "Gravando..."},
    {host::Awaited::Deletion, "Excluindo..."},
};

QString purposeOf(host::Awaited what) {
  for (const Purpose& purpose : kPurposes)
    if (purpose.what == what) return QString::fromUtf8(purpose.text);
  return QStringLiteral("Aguardando o banco de dados...");
}

// "Procurando... 2.048 lidos, há 3 s. Esc cancela."
QString lineFor(const host::Wait& wait) {
  const QLocale locale(QLocale::Portuguese, QLocale::Brazil);
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(wait.Elapsed).count();
  QString text = purposeOf(wait.What) + u' ';
  if (wait.Rows == 1) text += QStringLiteral("1 lido, ");
  if (wait.Rows > 1) text += QStringLiteral("%1 lidos, ").arg(locale.toString(wait.Rows));
  return text + QStringLiteral("há %1 s. Esc cancela.").arg(seconds);
}

}  // namespace

WaitView::WaitView() = default;

WaitView::~WaitView() { Over(); }

bool WaitView::Pass(const host::Wait& wait) {
  if (inputs_.size() == passing_) {
    inputs_.push_back(std::make_unique<WaitInput>());
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  }
  if (wait.Elapsed >= kSilence) showLine(wait);
  const DuringAction background(0);
  letEventsIn();
  return inputs_[passing_]->takeEscape();
}

// What a slot of the program throws is told after the wait: no box opens in it.
void WaitView::letEventsIn() noexcept {
  ++passing_;
  try {
    QCoreApplication::processEvents(QEventLoop::AllEvents, kStep);
  } catch (...) {
    thrown_ = std::current_exception();
  }
  --passing_;
}

void WaitView::tellWhatWasThrown() {
  if (!thrown_ || !qApp) return;
  QMetaObject::invokeMethod(
      qApp,
      [thrown = std::exchange(thrown_, nullptr)] {
        guarded(nullptr, [&] { std::rethrow_exception(thrown); });
      },
      Qt::QueuedConnection);
}

// Ends the innermost wait, and not those in whose Pass it ran.
void WaitView::Over() {
  while (inputs_.size() > passing_) {
    QGuiApplication::restoreOverrideCursor();
    inputs_.pop_back();
  }
  if (!inputs_.empty()) return;
  delete line_;
  tellWhatWasThrown();
}

// On the lower edge of the window in front.
void WaitView::showLine(const host::Wait& wait) {
  QWidget* const window = windowInFront();
  if (!line_ && !window) return;
  if (!line_) {
    line_ = new QLabel(window);
    line_->setObjectName(QStringLiteral("tessariaWait"));
    line_->setAutoFillBackground(true);
    line_->setBackgroundRole(QPalette::ToolTipBase);
    line_->setForegroundRole(QPalette::ToolTipText);
    line_->setFrameStyle(QFrame::Box | QFrame::Plain);
    line_->setMargin(line_->fontMetrics().averageCharWidth());
  }
  const QString text = lineFor(wait);
  if (line_->text() != text) line_->setText(text);
  line_->setAccessibleName(text);
  const QWidget* const parent = line_->parentWidget();
  line_->resize(std::min(line_->sizeHint().width(), parent->width()), line_->sizeHint().height());
  line_->move((parent->width() - line_->width()) / 2, parent->height() - line_->height());
  line_->show();
  line_->raise();
}

}  // namespace tessaria::qt
