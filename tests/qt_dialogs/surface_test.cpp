// What a surface of the Qt host adds to the contract: frames, names for screen readers, mnemonics,
// sizes, colours.
#include <QAccessible>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "hosts/qt/dialogs/surface.h"
#include "hosts/qt/widgets/tab_strip.h"
#include "tessaria/qt/form.h"
#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {
namespace {

using host::WidgetKind;
using testing::ElementsAre;

constexpr StringView kPages[] = {u"Principal", u"Pesquisa"};
constexpr StringView kHeadings[] = {u"Campo", u"Tipo"};
constexpr host::WidgetDescription kPageWidgets[] = {
    {u"tabPropriedade", WidgetKind::TabStrip, u"Propriedades", {}, -1, {}, -1, kPages},
    {u"lblMascara", WidgetKind::Label, u"&Mascara", {}, -1, u"tabPropriedade", 0},
    {u"txtMascara", WidgetKind::TextBox, {}, {}, -1, u"tabPropriedade", 0},
    {u"lblNotas", WidgetKind::Label, u"Notas", {}, -1, u"tabPropriedade", 0},
    {u"txtNotas", WidgetKind::MultiLineText, u"Notas do campo", {}, -1, u"tabPropriedade", 0},
    {u"fraTipo", WidgetKind::Frame, u"Tipo de Dado", {}, -1, u"tabPropriedade", 1},
    {u"optNumerico", WidgetKind::OptionButton, u"Numérico", {}, -1, u"fraTipo"},
    {u"optData", WidgetKind::OptionButton, u"Data", {}, -1, u"fraTipo"},
    {u"lista", WidgetKind::CheckList, u"Campos", {}, -1, u"tabPropriedade", 1, kHeadings},
    {u"btnIncluir", WidgetKind::CommandButton, u"&Incluir"},
    {u"btnExcluir", WidgetKind::CommandButton, u"&Excluir"},
};
constexpr host::DialogDescription kPage{u"pagConexao", u"Conexão", kPageWidgets};

/// A page inside a dialog of the program, which has its own buttons.
class Surfaces : public testing::Test {
 protected:
  Surfaces() {
    install();
    const FramedSurface made = makeSurface(kPage);
    page_ = made.surface;
    widget_ = made.widget;
    auto* column = new QVBoxLayout(frame_.get());
    column->addWidget(made.widget);
    auto* answers = new QDialogButtonBox;
    ok_ = answers->addButton(QStringLiteral("&OK"), QDialogButtonBox::AcceptRole);
    column->addWidget(answers);
    ok_->setDefault(true);
    QObject::connect(ok_, &QPushButton::clicked, [this] { log_.push_back("ok"); });
  }

  void show() { showActive(*frame_); }
  template <class Port>
  Port& the(StringView name) {
    return page_->Find<Port>(name);
  }
  template <class Widget = QWidget>
  Widget& face(const char* name) {
    return at<Widget>(*frame_, QLatin1String(name));
  }

  BoxKeeper boxes_;
  std::unique_ptr<QDialog> frame_ = std::make_unique<QDialog>();
  host::SurfacePtr page_;
  QPointer<QWidget> widget_;
  QPushButton* ok_ = nullptr;
  std::vector<std::string> log_;
};

// --- Frames -------------------------------------------------------------------------------------

TEST_F(Surfaces, TheFramesDefaultButtonRunsAfterTheRulesOfLostFocus) {
  show();
  the<host::DialogWidget>(u"txtMascara").SetFocus();
  the<host::DialogWidget>(u"txtMascara").OnLostFocus = [&] { log_.push_back("lost mascara"); };
  the<host::DialogWidget>(u"tabPropriedade").OnLostFocus = [&] { log_.push_back("lost tab"); };
  press(*frame_, Qt::Key_Return);
  EXPECT_THAT(log_, ElementsAre("lost mascara", "ok"));
  the<host::DialogWidget>(u"tabPropriedade").SetFocus();
  press(*frame_, Qt::Key_Return);
  EXPECT_THAT(log_, ElementsAre("lost mascara", "ok", "lost tab", "ok"));
}

TEST_F(Surfaces, TheFramesMnemonicRunsAfterTheRulesOfLostFocus) {
  constexpr int kPressed = 250;  // milliseconds: a mnemonic shows the button pressed first
  the<host::DialogWidget>(u"txtMascara").OnLostFocus = [&] { log_.push_back("lost"); };
  show();
  the<host::DialogWidget>(u"txtMascara").SetFocus();
  press(*frame_, Qt::Key_O, Qt::AltModifier);
  QTest::qWait(kPressed);
  EXPECT_THAT(log_, ElementsAre("lost", "ok"));
}

TEST_F(Surfaces, EscapeIsLeftToTheFrame) {
  show();
  the<host::DialogWidget>(u"txtMascara").SetFocus();
  press(*frame_, Qt::Key_Escape);
  EXPECT_FALSE(frame_->isVisible());
}

TEST_F(Surfaces, OneOutlivesItsFrame) {
  show();
  frame_.reset();
  EXPECT_FALSE(widget_);
  auto& box = the<host::DialogTextBox>(u"txtMascara").Box();
  box.Text(u"999");
  EXPECT_EQ(box.Text(), u"999");
  the<host::DialogWidget>(u"txtMascara").SetFocus();
  page_.reset();
  settleEvents();
}

TEST_F(Surfaces, OneHidesInItsFrameWhenItsLastHandleIsGone) {
  show();
  page_.reset();
  EXPECT_FALSE(widget_->isVisible());
  settleEvents();
  EXPECT_FALSE(widget_);
  EXPECT_TRUE(frame_->isVisible());
}

// As at the end of a program, which clears Qt's queue.
TEST_F(Surfaces, OneThatIsLeavingDoesNotGoWithTheQueueOfEvents) {
  auto last = makeSurface(kPage);
  const QPointer<QWidget> widget(last.widget);
  last.surface.reset();
  QCoreApplication::removePostedEvents(qApp, QEvent::MetaCall);
  EXPECT_FALSE(widget.isNull());
  makeSurface(kPage);
  QCoreApplication::sendPostedEvents(qApp, QEvent::MetaCall);
  EXPECT_TRUE(widget.isNull());
}

TEST_F(Surfaces, OneIsAFormOfItsOwn) {
  const auto form = makeForm(*face("txtMascara").window());
  EXPECT_EQ(form->Name(), fromQt(frame_->objectName()));
  EXPECT_THROW(form->Controls(u"txtMascara"), HostError);
  EXPECT_TRUE(makeForm(face("pagConexao"))->Controls(u"txtMascara"));
}

TEST_F(Surfaces, AnErrorOfAHandlerIsShownOverTheFrame) {
  frame_->setObjectName(QStringLiteral("frmMoldura"));
  the<host::DialogButton>(u"btnIncluir").OnClick = [] { throw HostError(errors::TypeMismatch); };
  show();
  click(face("btnIncluir"));
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_EQ(boxes_.boxes()[0].owner, QStringLiteral("frmMoldura"));
}

// --- Layout and names ---------------------------------------------------------------------------

TEST_F(Surfaces, ALabelStandsBeforeItsBoxAndNamesIt) {
  show();
  auto& label = face<QLabel>("lblMascara");
  EXPECT_EQ(label.buddy(), &face("txtMascara"));
  EXPECT_LT(label.x(), face("txtMascara").x());
  EXPECT_EQ(face("txtNotas").accessibleName(), QStringLiteral("Notas do campo"));
  EXPECT_EQ(face("txtMascara").accessibleName(), QStringLiteral("Mascara"));
  the<host::DialogWidget>(u"btnIncluir").SetFocus();
  press(*frame_, Qt::Key_M, Qt::AltModifier);
  EXPECT_EQ(frame_->focusWidget(), &face("txtMascara"));
}

TEST_F(Surfaces, EveryWidgetThatTakesTheFocusHasANameForScreenReaders) {
  for (const auto& widget : kPageWidgets) {
    if (widget.Kind == WidgetKind::Label || widget.Kind == WidgetKind::Frame) continue;
    QWidget* target = &face(toQt(widget.Name).toLatin1().constData());
    while (target->focusProxy()) target = target->focusProxy();
    const auto* interface = QAccessible::queryAccessibleInterface(target);
    EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty()) << toQt(widget.Name).toStdString();
  }
}

// A sign on a button says nothing when it is read aloud.
TEST_F(Surfaces, ASpokenNameTakesThePlaceOfTheCaptionOfEveryKind) {
  for (int kind = 0; kind <= int(WidgetKind::FileList); ++kind) {
    const host::WidgetDescription widgets[] = {{.Name = u"um",
                                                .Kind = WidgetKind(kind),
                                                .Caption = u">",
                                                .ToolTip = {},
                                                .Index = -1,
                                                .Container = {},
                                                .Page = -1,
                                                .Rows = {},
                                                .AccessibleName = u"Acrescentar"}};
    const host::DialogDescription one{u"pagUm", u"Um", widgets};
    const FramedSurface made = makeSurface(one);
    auto* target = made.widget->findChild<QWidget*>(QStringLiteral("um"));
    while (target->focusProxy()) target = target->focusProxy();
    EXPECT_EQ(target->accessibleName(), QStringLiteral("Acrescentar")) << kind;
  }
}

TEST_F(Surfaces, ButtonsThatFollowEachOtherStandSideBySide) {
  show();
  EXPECT_EQ(face("btnIncluir").y(), face("btnExcluir").y());
  EXPECT_LT(face("btnIncluir").x(), face("btnExcluir").x());
}

TEST_F(Surfaces, OptionsThatFollowEachOtherStandSideBySideFromTheLeft) {
  the<host::DialogTabs>(u"tabPropriedade").Tab(1);
  show();
  const QRect first = face("optNumerico").geometry();
  const QRect second = face("optData").geometry();
  EXPECT_EQ(first.top(), second.top());
  EXPECT_LT(first.right(), second.left());
  EXPECT_LT(second.right(), face("fraTipo").width() / 2);
}

TEST_F(Surfaces, TheRoomOfALargerWindowGoesToTheWidgetsThatUseIt) {
  show();
  const QSize notes = face("txtNotas").size();
  const int button = face("btnIncluir").height();
  frame_->resize(frame_->size() + QSize(200, 150));
  settleEvents();
  EXPECT_EQ(face("txtNotas").size(), notes + QSize(200, 150));
  EXPECT_EQ(face("btnIncluir").height(), button);
}

TEST_F(Surfaces, NoTextIsClippedWithALargeFont) {
  QFont font = frame_->font();
  font.setPointSizeF(font.pointSizeF() * 2);
  frame_->setFont(font);
  show();
  for (const char* name : {"lblMascara", "txtMascara", "btnIncluir", "btnExcluir"}) {
    const QWidget& widget = face(name);
    EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << name;
    EXPECT_GE(widget.height(), widget.minimumSizeHint().height()) << name;
  }
}

// --- Kinds --------------------------------------------------------------------------------------

TEST_F(Surfaces, TheTabKeyStaysOnThePageInFront) {
  show();
  the<host::DialogWidget>(u"txtNotas").SetFocus();
  press(*frame_, Qt::Key_Tab);
  EXPECT_EQ(frame_->focusWidget(), &face("btnIncluir"));
  EXPECT_EQ(the<host::DialogTabs>(u"tabPropriedade").Tab(), 0);
}

TEST_F(Surfaces, ControlTabChoosesTheNextPageThatIsEnabled) {
  auto& tabs = the<host::DialogTabs>(u"tabPropriedade");
  tabs.OnClick = [&](Long previous) { log_.push_back("from " + std::to_string(previous)); };
  show();
  the<host::DialogWidget>(u"txtMascara").SetFocus();
  press(*frame_, Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(tabs.Tab(), 1);
  EXPECT_THAT(log_, ElementsAre("from 0"));
  tabs.TabEnabled(0, false);
  the<host::DialogWidget>(u"lista").SetFocus();
  press(*frame_, Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(tabs.Tab(), 1);
}

TEST_F(Surfaces, ControlPageDownAndPageUpChooseATabFromAnywhere) {
  auto& tabs = the<host::DialogTabs>(u"tabPropriedade");
  tabs.OnClick = [&](Long previous) { log_.push_back("from " + std::to_string(previous)); };
  show();
  for (const auto* name : {u"txtMascara", u"btnIncluir"}) {
    the<host::DialogWidget>(name).SetFocus();
    press(*frame_, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(tabs.Tab(), 1);
    press(*frame_, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(tabs.Tab(), 1);
    the<host::DialogWidget>(u"lista").SetFocus();
    press(*frame_, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(tabs.Tab(), 0);
  }
  EXPECT_THAT(log_, ElementsAre("from 0", "from 1", "from 0", "from 1"));
  tabs.TabEnabled(1, false);
  press(*frame_, Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(tabs.Tab(), 0);
}

TEST_F(Surfaces, ADisabledTabInFrontIsDrawnAsADisabledOne) {
  show();
  const QImage usable = face<TabStrip>("tabPropriedade").bar().grab().toImage();
  the<host::DialogTabs>(u"tabPropriedade").TabEnabled(0, false);
  EXPECT_NE(face<TabStrip>("tabPropriedade").bar().grab().toImage(), usable);
  the<host::DialogTabs>(u"tabPropriedade").TabEnabled(0, true);
  EXPECT_EQ(face<TabStrip>("tabPropriedade").bar().grab().toImage(), usable);
}

TEST_F(Surfaces, AListShowsItsHeadingsAndItsCheckBoxes) {
  auto& list = the<host::DialogListView>(u"lista");
  list.Add(u"codigo").AddSubItem(u"número");
  auto& view = face<QTreeWidget>("lista");
  EXPECT_FALSE(view.isHeaderHidden());
  EXPECT_EQ(view.headerItem()->text(1), QStringLiteral("Tipo"));
  EXPECT_EQ(view.topLevelItem(0)->checkState(0), Qt::Unchecked);
  EXPECT_EQ(view.topLevelItem(0)->text(1), QStringLiteral("número"));
}

TEST_F(Surfaces, AListMakesRoomForWhatComesIntoItLater) {
  auto& list = the<host::DialogListView>(u"lista");
  list.Add(u"codigo").AddSubItem(u"número");
  show();
  the<host::DialogTabs>(u"tabPropriedade").Tab(1);
  settleEvents();
  auto& view = face<QTreeWidget>("lista");
  const auto widthOf = [&](const QString& text) {
    return view.fontMetrics().horizontalAdvance(text);
  };
  EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
  const QString name = QStringLiteral("codigo_da_condicao");
  list.Item(1).Text(fromQt(name));
  settleEvents();
  const int wide = view.columnWidth(0);
  EXPECT_GT(wide, widthOf(name));
  list.Item(1).Text(u"x");
  settleEvents();
  EXPECT_EQ(view.columnWidth(0), wide) << "only the operator makes it narrower";
  const QString last(120, u'n');
  list.Add(u"nome").AddSubItem(fromQt(last));
  settleEvents();
  EXPECT_GT(view.columnWidth(1), widthOf(last));
  EXPECT_EQ(view.columnWidth(0), wide);
  EXPECT_GT(view.horizontalScrollBar()->maximum(), 0);
  list.Remove(2);
  settleEvents();
  EXPECT_EQ(view.columnWidth(0) + view.columnWidth(1), view.viewport()->width());
  EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

TEST_F(Surfaces, WhatIsPastedIntoAMultiLineTextIsBounded) {
  auto& box = the<host::DialogTextBox>(u"txtNotas").Box();
  box.MaxLength(6);
  show();
  the<host::DialogWidget>(u"txtNotas").SetFocus();
  TheDesktop().ClipboardText(u"um\ndois\ntrês");
  press(*frame_, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"um\r\ndo");
  box.MaxLength(0);
  box.Text(u"a\nb\rc");
  EXPECT_EQ(box.Text(), u"a\nb\rc") << "as it is until it is edited";
  box.SelText(u"x");
  EXPECT_EQ(box.Text(), u"xa\r\nb\r\nc");
}

TEST_F(Surfaces, AHandlerMayRefuseOrChangeTheCharactersOfAMultiLineText) {
  auto& box = the<host::DialogTextBox>(u"txtNotas").Box();
  box.OnKeyPress = [](Integer& code) {
    if (code == u'a') code = u'A';
    if (code == u'b') code = 0;
  };
  show();
  the<host::DialogWidget>(u"txtNotas").SetFocus();
  type(*frame_, QStringLiteral("abc"));
  EXPECT_EQ(box.Text(), u"Ac");
}

TEST_F(Surfaces, ColoursFollowADarkTheme) {
  const QPalette light = QApplication::palette();
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(40, 40, 40));
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  dark.setColor(QPalette::WindowText, Qt::white);
  dark.setColor(QPalette::Text, Qt::white);
  QApplication::setPalette(dark);
  show();
  EXPECT_EQ(page_->BackColor(), host::colour::ButtonFace);
  for (const char* name : {"txtMascara", "txtNotas", "lista"}) {
    const QPalette own = face(name).palette();
    EXPECT_EQ(own.color(QPalette::Base), QColor(30, 30, 30)) << name;
    EXPECT_EQ(own.color(QPalette::Text), QColor(Qt::white)) << name;
  }
  QApplication::setPalette(light);
}

}  // namespace
}  // namespace tessaria::qt::tests
