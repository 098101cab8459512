// The form of the Qt host under the contract of forms, in a real window.
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>
#include <map>

#include "tessaria/host/application.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/variants.h"
#include "tests/ports/action_contract.h"
#include "tests/qt/operator.h"

namespace tessaria::contract {
namespace {

class QtForm final : public FormDriver {
 public:
  QtForm() {
    window_->setObjectName(QStringLiteral("frmDados"));
    auto* layout = new QVBoxLayout(window_);
    const auto add = [&](auto* widget, const char* name, QLayout* where) {
      widget->setObjectName(QLatin1String(name));
      where->addWidget(widget);
      return widget;
    };
    add(new QLabel(QStringLiteral("Código")), "lblCodigo", layout);
    handle(add(new qt::TsText, "txtCodigo", layout));
    auto* tabs = add(new QTabWidget, "tabDados", layout);
    tabs->addTab(new QWidget, QStringLiteral("Um"));
    tabs->addTab(new QWidget, QStringLiteral("Dois"));
    auto* frame = add(new QGroupBox, "fraDados", layout);
    handle(add(new qt::TsText, "txtNome", new QVBoxLayout(frame)));
    button_ = add(new QPushButton, "btnGravar", layout);
    auto* action = new QAction(window_);
    action->setObjectName(QStringLiteral("acSalvar"));
    action->setShortcut(Qt::Key_F8);
    window_->addAction(action);
    QObject::connect(action, &QAction::triggered, window_, [this] {
      if (!qt::guarded(window_, action_)) ++unhandled_;
    });
    form_ = qt::makeForm(*window_);
  }
  ~QtForm() override { delete window_; }

  host::Form& Form() override { return *form_; }
  void DbForm(const Variant& connection) override {
    window_->setProperty("dbForm", connection.IsEmpty() ? QVariant::fromValue(host::ConnectionPtr())
                                                        : qt::toQVariant(connection));
  }
  void Bind(const String& name) override {
    field(name)->setDataSource(QStringLiteral("dcDados"));
    field(name)->setDataField(QStringLiteral("Codigo"));
  }
  void Show() override { qt::tests::showActive(*window_); }
  void Hide() override { window_->hide(); }
  void Close() override { delete window_; }
  void Click(const String& name) override {
    auto* widget = window_->findChild<QWidget*>(qt::toQt(name));
    auto* surface = qobject_cast<qt::TsText*>(widget);
    qt::tests::click(surface ? *qt::tests::editOf(*surface) : *widget);
  }
  void PressTab(bool backwards) override {
    qt::tests::press(*window_, backwards ? Qt::Key_Backtab : Qt::Key_Tab);
    qt::tests::settleEvents();
  }
  void Type(const String& text) override { qt::tests::type(*window_, qt::toQt(text)); }
  void Hold(char16_t letter) override { send(QTest::Press, letter); }
  void Release(char16_t letter) override { send(QTest::Release, letter); }
  void Insert(const String& name, const String& text) override {
    qt::tests::drop(*qt::tests::editOf(*field(name)), qt::toQt(text), 0);
  }
  void RunAction() override { QTest::keyClick(window_->focusWidget(), Qt::Key_F8); }
  void HandleAction(std::function<void()> action) override { action_ = std::move(action); }
  void CloseByFrame() override { qt::tests::closeByFrame(*window_); }
  void TakeFocus(const String& name) override { field(name)->setFocus(); }
  void Handle(const String& name, Handlers handlers) override {
    handlers_[qt::toQt(name)] = std::move(handlers);
  }
  void HandleClick(const String&, std::function<void()> handler) override {
    // A program's own slot goes through the event boundary like those of the library.
    QObject::connect(button_, &QPushButton::clicked, window_, [this, handler] {
      if (!qt::guarded(window_, handler)) ++unhandled_;
    });
  }
  int UnhandledErrors() const override { return unhandled_; }
  std::vector<String> TakeBoxes() override {
    std::vector<String> texts;
    for (const QString& text : boxes_.takeTexts()) texts.push_back(qt::fromQt(text));
    return texts;
  }

 private:
  qt::TsText* field(const String& name) const {
    return window_->findChild<qt::TsText*>(qt::toQt(name));
  }
  void send(QTest::KeyAction action, char16_t letter) {
    QTest::sendKeyEvent(action, window_->focusWidget(), Qt::Key(QChar(letter).toUpper().unicode()),
                        QString(QChar(letter)), Qt::NoModifier);
  }
  void handle(qt::TsText* control) {
    const QString name = control->objectName();
    const auto key = [this, name] {
      if (const auto handler = handlers_[name].Key) handler();
    };
    QObject::connect(control, &qt::TsText::shown, window_, [this, name] {
      if (const auto handler = handlers_[name].Show) handler();
    });
    QObject::connect(control, &qt::TsText::keyDown, window_, key);
    QObject::connect(control, &qt::TsText::keyPress, window_, key);
    QObject::connect(control, &qt::TsText::keyUp, window_, [this, name, key] {
      key();
      if (const auto handler = handlers_[name].KeyUp) handler();
    });
    QObject::connect(control, &qt::TsText::unhandledError, window_, [this] { ++unhandled_; });
    QObject::connect(control, &qt::TsText::browseReturn, window_, [this, name](bool& changed) {
      if (const auto handler = handlers_[name].BrowseReturn) handler(changed);
    });
  }

  qt::tests::BoxKeeper boxes_;
  QPointer<QWidget> window_ = new QWidget;
  QPushButton* button_ = nullptr;
  host::FormPtr form_;
  std::map<QString, Handlers> handlers_;
  std::function<void()> action_;
  int unhandled_ = 0;
};

const FormHost kQt{"qt", [] { return std::make_unique<QtForm>(); }};

INSTANTIATE_TEST_SUITE_P(Qt, FormContract, testing::Values(kQt));
INSTANTIATE_TEST_SUITE_P(Qt, KeyContract, testing::Values(kQt));
INSTANTIATE_TEST_SUITE_P(Qt, ActionContract, testing::Values(kQt));
INSTANTIATE_TEST_SUITE_P(Qt, RoundedAmountContract, testing::Values(kQt));

}  // namespace
}  // namespace tessaria::contract
