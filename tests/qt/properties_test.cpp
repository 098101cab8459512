// The widget's properties compared with the control's table, and late binding to both.
#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QMetaProperty>

#include "control/storage/properties.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/variants.h"
#include "tessaria/tstext.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

QMetaProperty metaProperty(StringView name) {
  const QMetaObject& meta = TsText::staticMetaObject;
  return meta.property(meta.indexOfProperty(toQt(name).toLatin1()));
}

bool isReachable(const Property& property) { return property.DispatchId != 0; }

TEST(Properties, EveryPropertyOfTheControlIsAPropertyOfTheWidget) {
  for (const Property& property : Properties()) {
    // Qt has no write-only properties: that one is a setter.
    if (!isReachable(property) || !property.Get) continue;
    const QMetaProperty found = metaProperty(property.Name);
    EXPECT_TRUE(found.isValid()) << toQt(property.Name).toStdString();
    EXPECT_EQ(found.isWritable(), property.Let != nullptr) << found.name();
  }
}

TEST(Properties, TypesCanBeEditedInDesigner) {
  const std::map<PropertyType, int> types = {
      {PropertyType::String, QMetaType::QString},   {PropertyType::Long, QMetaType::Int},
      {PropertyType::Boolean, QMetaType::Bool},     {PropertyType::Colour, QMetaType::QColor},
      {PropertyType::Variant, QMetaType::QVariant}, {PropertyType::Object, QMetaType::QVariant},
      {PropertyType::Font, QMetaType::QFont}};
  for (const Property& property : Properties()) {
    if (!isReachable(property) || !property.Get) continue;
    const QMetaProperty found = metaProperty(property.Name);
    if (found.isEnumType()) continue;
    EXPECT_EQ(found.typeId(), types.at(property.Type)) << found.name();
  }
}

TEST(Properties, OnlyTheSettingsAndThePlaceholderAreStored) {
  static const std::set<std::string> stored = {"settings", "placeholderText", "multiLineText"};
  const QMetaObject& meta = TsText::staticMetaObject;
  for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
    EXPECT_EQ(meta.property(i).isStored(), stored.count(meta.property(i).name()) == 1)
        << meta.property(i).name();
}

TEST(Properties, DesignersOfferWhatTheTableOffers) {
  for (const Property& property : Properties()) {
    if (!isReachable(property) || !property.Get) continue;
    EXPECT_EQ(metaProperty(property.Name).isDesignable(), property.AtDesignTime)
        << toQt(property.Name).toStdString();
  }
}

TEST(Properties, DesignersOfferNoValueAndNoTypedText) {
  for (StringView name : {u"Value", u"OriginalValue", u"Texto", u"Text", u"SelText", u"Carregou"})
    EXPECT_FALSE(FindProperty(name)->AtDesignTime) << toQt(name).toStdString();
  for (StringView name : {u"Mascara", u"TipoControle", u"BrowseTable", u"Font", u"Enabled"})
    EXPECT_TRUE(FindProperty(name)->AtDesignTime) << toQt(name).toStdString();
}

TEST(Properties, TheKindsOfControlHaveTheirNumbers) {
  const QMetaEnum kinds = metaProperty(u"TipoControle").enumerator();
  EXPECT_EQ(kinds.keyCount(), 6);
  EXPECT_EQ(kinds.keyToValue("Descricao"), 3);
}

TEST(Properties, ASetterIsAnAssignmentWithItsSideEffects) {
  const BoxKeeper boxes;
  TsText field;
  EXPECT_TRUE(field.setProperty("TipoControle", TsText::Calculadora));
  EXPECT_TRUE(field.property("PromptInclude").toBool());
  field.setProperty("Mascara", QStringLiteral("00/00"));
  EXPECT_EQ(field.text(), QStringLiteral("__/__"));
  field.setProperty("PromptChar", QStringLiteral("ab"));
  EXPECT_EQ(field.promptChar(), QStringLiteral("a"));
  field.setProperty("Nome", QStringLiteral("x"));
  EXPECT_EQ(boxes.boxes().size(), 1u);
}

TEST(Properties, ANewControlHasTheStartValues) {
  const TsText field;
  EXPECT_EQ(field.tipoControle(), TsText::Normal);
  EXPECT_TRUE(field.podeSerBranco());
  EXPECT_TRUE(field.usaChecaRelacao());
  EXPECT_EQ(field.promptChar(), QStringLiteral("_"));
  EXPECT_EQ(field.tipoStrZero(), 2);
  EXPECT_TRUE(field.fieldFont().bold());
  EXPECT_TRUE(field.carregou());
}

TEST(Properties, EveryTextAndNumberReadsBackUnchanged) {
  TsText field;
  for (const Property& property : Properties()) {
    // Except those whose assignment is refused, cut or moved because of the content of the box.
    static const std::set<StringView> special = {u"Nome",         u"LabelAssociado", u"PromptChar",
                                                 u"SelStart",     u"SelLength",      u"SelText",
                                                 u"PasswordChar", u"TipoControle"};
    if (!isReachable(property) || !property.Let || !property.Get || special.count(property.Name))
      continue;
    const QMetaProperty meta = metaProperty(property.Name);
    if (property.Type == PropertyType::String) {
      EXPECT_TRUE(meta.write(&field, QStringLiteral("abc"))) << meta.name();
      EXPECT_EQ(meta.read(&field).toString(), QStringLiteral("abc")) << meta.name();
    } else if (property.Type == PropertyType::Long) {
      EXPECT_TRUE(meta.write(&field, 9)) << meta.name();
      EXPECT_EQ(meta.read(&field).toInt(), 9) << meta.name();
    } else if (property.Type == PropertyType::Boolean) {
      const bool before = meta.read(&field).toBool();
      EXPECT_TRUE(meta.write(&field, !before)) << meta.name();
      EXPECT_EQ(meta.read(&field).toBool(), !before) << meta.name();
    }
  }
}

// --- Values

TEST(Values, AreConvertedBetweenTheCoreAndQt) {
  const QDate day(2016, 12, 31);
  const std::pair<Variant, QVariant> cases[] = {
      {Variant(), QVariant()},
      {Variant::Null(), QVariant::fromValue(nullptr)},
      {Long{7}, 7},
      {2.5, 2.5},
      {true, true},
      {u"ação", QStringLiteral("ação")},
      {Date{42735}, day},
      {Date{42735.5}, QDateTime(day, QTime(12, 0))},
  };
  for (const auto& [core, qt] : cases) {
    EXPECT_EQ(toQVariant(core), qt);
    const Variant back = toVariant(qt);
    EXPECT_EQ(back.Type(), core.Type()) << qt.typeName();
    EXPECT_EQ(toQVariant(back), qt);
  }
}

TEST(Values, AValueWithoutACounterpartIsATypeMismatch) {
  EXPECT_THROW(toVariant(QVariant(QRect(1, 2, 3, 4))), HostError);
  EXPECT_TRUE(toVariant(QVariant::fromValue(host::ConnectionPtr())).IsEmpty());
}

// --- Late binding

class LateBinding : public FieldFixture {
 protected:
  host::WidgetPtr widget(QWidget& w) { return makeWidget(w); }
  static Long errorOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const HostError& error) {
      return error.Number();
    }
    return 0;
  }
  static QVariant get(const host::WidgetPtr& w, const char16_t* name) {
    return toQVariant(w->Get(name));
  }
};

TEST_F(LateBinding, ReachesTheNamesOfTheObjectModel) {
  const auto button = widget(*button_);
  EXPECT_EQ(get(button, u"caption").toString(), QStringLiteral("&Gravar"));
  button->Let(u"CAPTION", u"Novo");
  EXPECT_EQ(button_->text(), QStringLiteral("Novo"));
  button->Let(u"Enabled", false);
  EXPECT_FALSE(button_->isEnabled());
  EXPECT_FALSE(get(button, u"enabled").toBool());
  button->Let(u"Visible", false);
  EXPECT_TRUE(button_->isHidden());
  EXPECT_EQ(get(button, u"Name").toString(), QStringLiteral("btnGravar"));
  button->Let(u"ForeColor", Long{0x0000FF});
  EXPECT_EQ(get(button, u"ForeColor").toInt(), 0x0000FF);
  EXPECT_EQ(get(button, u"Width").toInt(), button_->width() * 15);
}

TEST_F(LateBinding, ReachesQtsOwnAndDynamicProperties) {
  QCheckBox check;
  widget(check)->Let(u"Value", true);
  EXPECT_TRUE(check.isChecked());
  QComboBox combo;
  combo.addItems({QStringLiteral("um"), QStringLiteral("dois")});
  widget(combo)->Let(u"ListIndex", 1);
  EXPECT_EQ(get(widget(combo), u"Text").toString(), QStringLiteral("dois"));
  button_->setProperty("Minha", 5);
  EXPECT_EQ(get(widget(*button_), u"minha").toInt(), 5);
}

TEST_F(LateBinding, ReachesAControlsOwnPropertiesFirst) {
  const auto field = widget(*first_);
  field->Let(u"mascara", u"00");
  EXPECT_EQ(first_->mascara(), QStringLiteral("00"));
  EXPECT_EQ(field->Get(u"BackColor").Type(), Variant::Kind::Long);
  EXPECT_EQ(errorOf([&] { field->Let(u"Carregou", true); }), errors::PropertyIsReadOnly);
  EXPECT_EQ(errorOf([&] { field->Get(u"LastValue"); }), errors::PropertyIsWriteOnly);
}

TEST_F(LateBinding, ADisabledFieldIsNotATabStop) {
  const auto field = widget(*first_);
  show();
  EXPECT_TRUE(get(field, u"TabStop").toBool());
  first_->setEnabled(false);
  EXPECT_FALSE(get(field, u"TabStop").toBool());
  first_->setEnabled(true);
  field->Let(u"TabStop", false);
  EXPECT_FALSE(get(field, u"TabStop").toBool());
  second_->setFocus();
  press(*window_, Qt::Key_Backtab, Qt::ShiftModifier);
  settleEvents();
  EXPECT_NE(focusedField(), first_);
}

TEST_F(LateBinding, NamesItsErrors) {
  const auto button = widget(*button_);
  EXPECT_EQ(errorOf([&] { button->Get(u"Nada"); }), errors::NoSuchMember);
  EXPECT_EQ(errorOf([&] { button->Let(u"Name", u"x"); }), errors::PropertyIsReadOnly);
  EXPECT_EQ(errorOf([&] { button->Let(u"sizeHint", u"x"); }), errors::PropertyIsReadOnly);
  EXPECT_EQ(errorOf([&] { button->Let(u"iconSize", u"x"); }), errors::TypeMismatch);
  EXPECT_EQ(errorOf([&] { button->Let(u"Enabled", u"x"); }), errors::TypeMismatch);
}

}  // namespace
}  // namespace tessaria::qt::tests
