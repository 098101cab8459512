// Creates, uses and destroys hundreds of real windows, and closes them at the worst moments: none
// harms the program, and the memory does not grow.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <functional>

#include "tessaria/memory/connection.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tests/attack/random_form.h"
#include "tests/qt/operator.h"

namespace tessaria::attack {
namespace {

using qt::TsText;

constexpr std::size_t kFieldsOfAWindow = 4;
constexpr int kSteps = 40;
constexpr int kModalLook = 2;  // milliseconds
constexpr long long kBytesAForm = 512;
constexpr long long kBytesAtFirst = 2 * 1024 * 1024;

QString NameOf(std::size_t field) { return QStringLiteral("campo%1").arg(field); }

enum class Moment { Afterwards, InTheModalWindow, InAHandler };
constexpr Moment kMoments[] = {Moment::Afterwards, Moment::InTheModalWindow, Moment::InAHandler};

/// A window that destroys itself at the chosen moment.
class Life {
 public:
  Life(Random& random, Moment moment)
      : random_(random), moment_(moment), connection_(memory::Connection::CreateOpen()) {
    connection_->OnStatement = [](const String&) {
      return memory::Rows{{{u"codigo"}, {u"nome"}}, {{u"1", u"Ana"}, {u"2", u"Bia"}}};
    };
    QObject::connect(&modals_, &QTimer::timeout, [this] { WorkModal(); });
    modals_.start(kModalLook);
    window_->setObjectName(QStringLiteral("frmAtaque"));
    window_->setProperty("dbForm", QVariant::fromValue(host::ConnectionPtr(connection_)));
    auto* layout = new QVBoxLayout(window_);
    for (std::size_t i = 0; i < kFieldsOfAWindow; ++i) AddField(*layout, i);
    auto* button = new QPushButton(QStringLiteral("&Gravar"));
    layout->addWidget(button);
    if (moment == Moment::InAHandler) CloseInAHandler();
  }
  ~Life() { delete window_; }
  Life(const Life&) = delete;
  Life& operator=(const Life&) = delete;

  void Run() {
    window_->show();
    isShown_ = true;
    window_->activateWindow();
    qt::tests::settleEvents();
    for (int i = 0; i < kSteps && window_; ++i) Work();
    qt::tests::settleEvents();
    Count(window_ ? "windows closed at their end" : "windows destroyed at work");
  }

 private:
  void AddField(QVBoxLayout& layout, std::size_t number) {
    auto* field = new TsText;
    field->setObjectName(NameOf(number));
    layout.addWidget(field);
    field->setTipoControle(static_cast<TsText::TipoControle>(random_.Below(6)));
    field->setUsaChecaRelacao(random_.Chance(30));
    field->setMaxLength(random_.Chance(50) ? 0 : static_cast<int>(random_.Below(20)));
    field->setTipoDado(random_.OneOf({8, 8, 5, 7}));
    field->setBrowseTable(QStringLiteral("clientes"));
    field->setBrwCampo(QStringLiteral("codigo"));
    field->setBrwCampoIrmao(QStringLiteral("nome"));
    field->setTxtIrmao(
        NameOf((number + 1 + random_.Below(kFieldsOfAWindow - 1)) % kFieldsOfAWindow));
    field->setMascara(qt::toQt(RandomMask(random_)));
  }
  TsText& AnyField() {
    return *window_->findChild<TsText*>(NameOf(random_.Below(kFieldsOfAWindow)));
  }

  void CloseInAHandler() {
    TsText& field = AnyField();
    const auto close = [this] { Close(); };
    switch (random_.Below(6)) {
      case 0:
        return static_cast<void>(QObject::connect(&field, &TsText::shown, qApp, close));
      case 1:
        return static_cast<void>(QObject::connect(&field, &TsText::changed, qApp, close));
      case 2:
        return static_cast<void>(QObject::connect(&field, &TsText::keyDown, qApp, close));
      case 3:
        return static_cast<void>(QObject::connect(&field, &TsText::keyPress, qApp, close));
      case 4:
        return static_cast<void>(QObject::connect(&field, &TsText::keyUp, qApp, close));
      default:
        return static_cast<void>(QObject::connect(&field, &TsText::browseReturn, qApp, close));
    }
  }
  // Qt itself needs the window until it is shown.
  void Close() {
    if (isShown_) {
      delete window_;
    } else if (window_) {
      window_->close();
    }
  }

  // Closes the modal window in front, and the window under it when that is the chosen moment.
  void WorkModal() {
    const QPointer<QWidget> modal(QApplication::activeModalWidget());
    if (!modal) return;
    if (moment_ == Moment::InTheModalWindow && isShown_) Close();
    if (modal) modal->close();
    if (modal && modal->isVisible()) qt::tests::press(*modal, Qt::Key_Return);
  }

  // Enters it as a dead key does, because the window may be destroyed during the key.
  void Enter(const QString& character) {
    if (moment_ == Moment::Afterwards) return qt::tests::type(*window_, character);
    if (window_->focusWidget()) qt::tests::commit(*window_, character);
  }

  void Work() {
    switch (random_.Below(8)) {
      case 0:
        return qt::tests::press(*window_, Qt::Key_Tab), qt::tests::settleEvents();
      case 1:
        return AnyField().setFocus(Qt::TabFocusReason), qt::tests::settleEvents();
      case 2:
        return qt::tests::press(*window_, Qt::Key_PageDown);
      case 3:
        return qt::tests::click(*window_->findChild<QPushButton*>());
      case 4:
        return AnyField().setValue(qt::toQt(String(1, RandomCharacter(random_))));
      default:
        return Enter(qt::toQt(String(1, RandomCharacter(random_))));
    }
  }

  Random& random_;
  Moment moment_;
  std::shared_ptr<memory::Connection> connection_;
  QPointer<QWidget> window_ = new QWidget;
  QTimer modals_;
  bool isShown_ = false;
};

TEST(Windows, MayBeDestroyedAtAnyMomentAndLeaveNothingBehind) {
  const long long windows = Amount(150, 10'000);
  long long before = 0;
  for (long long i = 0; i < windows; ++i) {
    Random random("window " + std::to_string(i));
    Life(random, kMoments[static_cast<std::size_t>(i) % std::size(kMoments)]).Run();
    qt::tests::settleEvents();
    if (i == windows / 3) before = HeapBytes();
  }
  const long long growth = HeapBytes() - before;
  Count("bytes that the heap grew", growth);
  EXPECT_LT(growth, kBytesAtFirst + kBytesAForm * windows);
}

}  // namespace
}  // namespace tessaria::attack
