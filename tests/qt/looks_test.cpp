// Sizes, colours, icons, accessibility, key codes.
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <cmath>

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/drawn_icon.h"
#include "hosts/qt/conversion/key_codes.h"
#include "hosts/qt/conversion/units.h"
#include "tessaria/error.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/text.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

/// As the guidelines for accessible web pages define it.
double contrast(const QColor& a, const QColor& b) {
  const auto light = [](const QColor& c) {
    const auto part = [](double value) {
      return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(c.redF()) + 0.7152 * part(c.greenF()) + 0.0722 * part(c.blueF()) + 0.05;
  };
  return std::max(light(a), light(b)) / std::min(light(a), light(b));
}

QPalette darkTheme() {
  QPalette dark(QColor(40, 40, 40));
  dark.setColor(QPalette::Base, QColor(25, 25, 25));
  dark.setColor(QPalette::Text, QColor(230, 230, 230));
  dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
  return dark;
}

class Looks : public FieldFixture {
 protected:
  ~Looks() override { QApplication::setPalette(light_); }
  QToolButton& browse() { return *first_->findChild<QToolButton*>(QStringLiteral("btnBrowse")); }
  const QPalette light_ = QApplication::palette();
};

TEST_F(Looks, TheSizeHintFitsTheFontWhateverItsSize) {
  for (int points : {6, 10, 30}) {
    QFont font = QApplication::font();
    font.setPointSize(points);
    first_->setFieldFont(font);
    const int needed = editOf(*first_)->sizeHint().height();
    EXPECT_GE(first_->sizeHint().height(), needed);
    EXPECT_GE(first_->minimumSizeHint().height(), QFontMetrics(first_->fieldFont()).height());
    EXPECT_GE(twipsY(first_->sizeHint().height(), *first_), 315);
  }
}

TEST_F(Looks, ALowControlGetsTheMinimumHeight) {
  TsText field(window_.get());
  field.setGeometry(0, 0, 200, 10);
  window_->show();
  field.show();
  EXPECT_EQ(field.height(), 21);
}

TEST_F(Looks, TheBoxMakesRoomForTheButton) {
  TsText field(window_.get());
  field.setGeometry(0, 0, 200, 30);
  showActive(*window_);
  field.show();
  settleEvents();
  EXPECT_EQ(editOf(field)->width(), 200 - 5);  // 70 twips
  field.setTipoControle(TsText::Calendario);
  EXPECT_EQ(editOf(field)->width(), 200 - 24);  // 360 twips
  const auto* button = field.findChild<QToolButton*>(QStringLiteral("btnBrowse"));
  EXPECT_TRUE(button->isVisible());
  EXPECT_LE(button->geometry().right(), 200);
  EXPECT_GT(button->x(), editOf(field)->geometry().right());
}

TEST_F(Looks, ButtonsHaveIconNameAndToolTip) {
  const std::pair<TsText::TipoControle, const char*> kinds[] = {
      {TsText::Browse, "Procurar"},
      {TsText::Calendario, "Calendário"},
      {TsText::Diretorio, "Pasta"},
      {TsText::Calculadora, "Calculadora"}};
  show();
  for (const auto& [kind, name] : kinds) {
    first_->setTipoControle(kind);
    EXPECT_FALSE(browse().isHidden());
    EXPECT_FALSE(browse().icon().isNull()) << name;
    EXPECT_FALSE(browse().icon().pixmap(16, 16).isNull()) << name;
    EXPECT_EQ(browse().accessibleName(), QString::fromUtf8(name));
    EXPECT_EQ(browse().toolTip(), QString::fromUtf8(name));
    EXPECT_FALSE(browse().focusPolicy() & Qt::TabFocus & ~Qt::ClickFocus);
  }
  first_->setTipoControle(TsText::Normal);
  EXPECT_TRUE(browse().isHidden());
}

TEST_F(Looks, AButtonNamesItsField) {
  first_->setAccessibleName(QStringLiteral("Entrega"));
  first_->setTipoControle(TsText::Calendario);
  show();
  EXPECT_EQ(browse().accessibleName(), QStringLiteral("Calendário: Entrega"));
  EXPECT_EQ(browse().toolTip(), QStringLiteral("Calendário"));
}

TEST_F(Looks, ARequiredFieldSaysSo) {
  first_->setAccessibleDescription(QStringLiteral("Como no contrato"));
  show();
  EXPECT_EQ(box().accessibleDescription(), QStringLiteral("Como no contrato"));
  first_->setPodeSerBranco(false);
  EXPECT_EQ(box().accessibleDescription(), QStringLiteral("Como no contrato, obrigatório"));
  type(*window_, QStringLiteral("a"));
  EXPECT_EQ(box().accessibleDescription(), QStringLiteral("Como no contrato, obrigatório"));
  first_->setPodeSerBranco(true);
  EXPECT_EQ(box().accessibleDescription(), QStringLiteral("Como no contrato"));
}

QColor colourOfBox(TsText& field) {
  QLineEdit& box = *editOf(field);
  return box.grab().toImage().pixelColor(box.width() - 12, box.height() / 2);
}

/// How far the icon on a button stands out from the button.
double contrastOfIcon(QToolButton& button) {
  const QImage picture = button.grab().toImage();
  const QColor ground = picture.pixelColor(3, picture.height() / 2);
  double most = 1;
  for (int x = 4; x < picture.width() - 4; ++x)
    for (int y = 4; y < picture.height() - 4; ++y)
      most = std::max(most, contrast(picture.pixelColor(x, y), ground));
  return most;
}

TEST_F(Looks, AStyleSheetColoursTheBoxAndKeepsIconAndFocus) {
  first_->setTipoControle(TsText::Calendario);
  window_->setStyleSheet(
      QStringLiteral("QLineEdit { background: rgb(238, 244, 255); }"
                     "QLineEdit:focus { background: rgb(255, 247, 224); }"
                     "QLineEdit:disabled { background: rgb(200, 200, 200); }"));
  show();
  EXPECT_EQ(colourOfBox(*first_), QColor(255, 247, 224));
  leave();
  EXPECT_EQ(colourOfBox(*first_), QColor(238, 244, 255));
  EXPECT_GE(contrastOfIcon(browse()), 3);
  first_->setEnabled(false);
  settleEvents();
  EXPECT_EQ(colourOfBox(*first_), QColor(200, 200, 200));
}

TEST_F(Looks, AFieldsOwnStyleSheetColoursBoxAndButton) {
  first_->setTipoControle(TsText::Diretorio);
  first_->setStyleSheet(QStringLiteral("background: #ffffcc; color: #990000"));
  show();
  EXPECT_EQ(colourOfBox(*first_), QColor(0xff, 0xff, 0xcc));
  EXPECT_GE(contrastOfIcon(browse()), 3);
  type(*window_, QStringLiteral("x"));
  EXPECT_EQ(first_->text(), QStringLiteral("x"));
}

TEST_F(Looks, IconsAreVisibleInLightAndDarkAlsoWhenThePaletteChanges) {
  show();
  for (const auto kind :
       {TsText::Browse, TsText::Calendario, TsText::Diretorio, TsText::Calculadora}) {
    first_->setTipoControle(kind);
    for (const QPalette& palette : {light_, darkTheme(), light_}) {
      QApplication::setPalette(palette);
      settleEvents();
      EXPECT_GE(contrastOfIcon(browse()), 3) << kind;
    }
  }
}

/// How far a picture stands out from what it is drawn on.
double contrastOn(const QIcon& icon, const QColor& ground) {
  QImage picture(16, 16, QImage::Format_ARGB32);
  picture.fill(ground);
  QPainter painter(&picture);
  icon.paint(&painter, picture.rect());
  painter.end();
  double most = 1;
  for (int x = 0; x < picture.width(); ++x)
    for (int y = 0; y < picture.height(); ++y)
      most = std::max(most, contrast(picture.pixelColor(x, y), ground));
  return most;
}

TEST_F(Looks, EveryDrawnIconStandsOutInLightAndDarkAlsoAfterASwitch) {
  for (int shape = 0; shape <= int(DrawnShape::Last); ++shape) {
    const QIcon icon = drawnIcon(static_cast<DrawnShape>(shape));
    for (const QPalette& palette : {light_, darkTheme(), light_}) {
      QApplication::setPalette(palette);
      EXPECT_GE(contrastOn(icon, palette.color(QPalette::Window)), 3) << shape;
    }
  }
}

TEST_F(Looks, AnIconInTheApplicationsFolderComesFirst) {
  const QString path = QCoreApplication::applicationDirPath() + QStringLiteral("/Calendario.ico");
  QImage image(16, 16, QImage::Format_ARGB32);
  image.fill(Qt::magenta);
  ASSERT_TRUE(image.save(path, "PNG"));
  first_->setTipoControle(TsText::Calendario);
  show();
  EXPECT_EQ(browse().icon().pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::magenta));
  QFile::remove(path);
}

TEST_F(Looks, MissingAndInvalidPicturesAreErrors) {
  const QTemporaryDir folder;
  const String missing = fromQt(folder.filePath(QStringLiteral("nada.ico")));
  const QString broken = folder.filePath(QStringLiteral("texto.ico"));
  QFile file(broken);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("nada");
  file.close();
  auto& program = install().application();
  const auto numberOf = [&](const String& path) {
    try {
      program.LoadPicture(path);
    } catch (const HostError& error) {
      return error.Number();
    }
    return Long{0};
  };
  EXPECT_EQ(numberOf(missing), 53);
  EXPECT_EQ(numberOf(fromQt(broken)), 481);
  EXPECT_FALSE(program.FileExists(fromQt(folder.path())));
  EXPECT_EQ(program.PathSeparator(), u'/');
}

TEST_F(Looks, TheLiteralWhiteBoxIsReadableInADarkTheme) {
  QApplication::setPalette(darkTheme());
  show();
  const QPalette palette = box().palette();
  EXPECT_EQ(palette.color(QPalette::Base), QColor(Qt::white));
  EXPECT_GT(contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)), 3);
}

TEST_F(Looks, AChangeOfThemeIsApplied) {
  show();
  QApplication::setPalette(darkTheme());
  settleEvents();
  EXPECT_GT(contrast(box().palette().color(QPalette::Text), box().palette().color(QPalette::Base)),
            3);
}

TEST_F(Looks, ABlueCaptionIsReadableInADarkTheme) {
  QApplication::setPalette(darkTheme());
  show();
  const auto label = std::dynamic_pointer_cast<host::Label>(makeWidget(*label_));
  label->ForeColor(0xFF0000);
  EXPECT_EQ(label->ForeColor(), 0xFF0000u);
  EXPECT_GT(contrast(label_->palette().color(QPalette::WindowText), QColor(40, 40, 40)), 2);
}

TEST_F(Looks, ColoursAreBlueGreenRed) {
  const QPalette palette = QApplication::palette();
  EXPECT_EQ(toQColor(0x00FF8000, palette), QColor(0x00, 0x80, 0xFF));
  EXPECT_EQ(toColour(QColor(0x00, 0x80, 0xFF)), 0x00FF8000u);
  EXPECT_EQ(toQColor(0x80000005, palette), palette.color(QPalette::Base));
  EXPECT_EQ(toQColor(0x80000008, palette), palette.color(QPalette::Text));
  EXPECT_EQ(toQColor(0x8000000F, palette), palette.color(QPalette::Button));
  EXPECT_EQ(toQColor(0x80000011, palette), palette.color(QPalette::Disabled, QPalette::Text));
  EXPECT_EQ(toQColor(0x800000FF, palette), palette.color(QPalette::WindowText));
}

TEST_F(Looks, TheEditIsNamedByItsCaption) {
  first_->setDesignMode(true);
  first_->setLabelAssociado(QStringLiteral("LBLPRIMEIRO"));
  first_->setDesignMode(false);
  show();
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&box());
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Primeiro"));
  EXPECT_EQ(label_->buddy(), first_);
}

TEST_F(Looks, TheEditFollowsItsCaption) {
  label_->setBuddy(first_);
  show();
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&box());
  EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Primeiro"));
  label_->setText(QStringLiteral("&Código && nome"));
  settleEvents();
  EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Código & nome"));
}

TEST_F(Looks, AFieldsOwnAccessibleNameComesFirst) {
  label_->setBuddy(first_);
  first_->setAccessibleName(QStringLiteral("Chave"));
  show();
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&box());
  EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Chave"));
  leave();
  first_->setAccessibleName(QStringLiteral("Outra chave"));
  first_->setFocus();
  EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Outra chave"));
}

TEST_F(Looks, TheSurfaceOfAWhiteBoxIsAsItsFormAndAnyOtherHasTheColourOfItsBox) {
  show();
  const auto surface = [&] { return first_->palette().color(QPalette::Window); };
  EXPECT_EQ(surface(), window_->palette().color(QPalette::Window)) << "styles draw frames after it";
  EXPECT_FALSE(first_->autoFillBackground()) << "no white patch on the form";
  first_->setBackColor(QColor(10, 200, 30));
  EXPECT_EQ(surface(), QColor(10, 200, 30));
  EXPECT_TRUE(first_->autoFillBackground());
  first_->setEnabled(false);
  EXPECT_EQ(surface(), QApplication::palette().color(QPalette::Button));
  QApplication::setPalette(darkTheme());
  settleEvents();
  EXPECT_EQ(surface(), darkTheme().color(QPalette::Button));
  first_->setEnabled(true);
  EXPECT_EQ(surface(), darkTheme().color(QPalette::Window));
}

TEST_F(Looks, ADisabledFieldIsGrayAndComesBack) {
  show();
  first_->setEnabled(false);
  EXPECT_FALSE(first_->isFieldEnabled());
  EXPECT_FALSE(box().isEnabled());
  EXPECT_EQ(box().palette().color(QPalette::Disabled, QPalette::Base),
            box().parentWidget()->palette().color(QPalette::Button));
  first_->setEnabled(true);
  EXPECT_EQ(box().palette().color(QPalette::Active, QPalette::Base), QColor(Qt::white));
  first_->setProperty("enabled", false);
  EXPECT_FALSE(first_->isFieldEnabled());
}

TEST_F(Looks, ADescriptionIsBlue) {
  window_->setProperty("dbForm", QVariant());
  first_->setTipoControle(TsText::Descricao);
  show();
  EXPECT_EQ(first_->foreColor(), QColor(Qt::blue));
}

// --- Key codes

TEST(KeyCodes, AreTheVirtualKeyCodes) {
  const std::tuple<int, Qt::KeyboardModifiers, int> keys[] = {
      {Qt::Key_A, {}, 65},
      {Qt::Key_9, {}, 57},
      {Qt::Key_F9, {}, 120},
      {Qt::Key_PageDown, {}, 34},
      {Qt::Key_Home, {}, 36},
      {Qt::Key_Delete, {}, 46},
      {Qt::Key_Shift, {}, 16},
      {Qt::Key_Dead_Acute, {}, 219},
      {Qt::Key_Dead_Tilde, {}, 222},
      {Qt::Key_Ccedilla, {}, 186},
      {Qt::Key_Period, {}, 190},
      {Qt::Key_7, Qt::KeypadModifier, 103},
      {Qt::Key_Comma, Qt::KeypadModifier, 110},
      {Qt::Key_Left, Qt::KeypadModifier, 37},
      {Qt::Key_VolumeUp, {}, 0}};
  for (const auto& [key, modifiers, code] : keys)
    EXPECT_EQ(virtualKey(QKeyEvent(QEvent::KeyPress, key, modifiers)), code) << key;
}

TEST(KeyCodes, CharactersAreWhatTheKeyTypes) {
  const auto typed = [](int key, Qt::KeyboardModifiers modifiers, const char* text) {
    return charactersOf(QKeyEvent(QEvent::KeyPress, key, modifiers, QString::fromUtf8(text)));
  };
  const auto ctrlAlt = Qt::ControlModifier | Qt::AltModifier;
  EXPECT_EQ(typed(Qt::Key_A, {}, "a"), QStringList({"a"}));
  EXPECT_EQ(typed(Qt::Key_C, Qt::ControlModifier, ""), QStringList({QChar(3)}));
  EXPECT_EQ(typed(Qt::Key_Backspace, {}, "\b"), QStringList({QChar(8)}));
  EXPECT_EQ(typed(Qt::Key_Enter, Qt::KeypadModifier, "\r"), QStringList({QChar(13)}));
  EXPECT_EQ(typed(Qt::Key_Escape, {}, "\x1b"), QStringList({QChar(27)}));
  EXPECT_EQ(typed(Qt::Key_Delete, {}, "\x7f"), QStringList());
  EXPECT_EQ(typed(Qt::Key_G, Qt::AltModifier, "g"), QStringList());
  EXPECT_EQ(typed(Qt::Key_section, ctrlAlt, "§"), QStringList({QStringLiteral("§")}));
  EXPECT_EQ(typed(Qt::Key_unknown, {}, "😀"), QStringList({QStringLiteral("😀")}));
}

}  // namespace
}  // namespace tessaria::qt::tests
