#include "hosts/qt/control/field_mistakes.h"

#include <QAction>
#include <QLabel>
#include <QLoggingCategory>
#include <algorithm>
#include <optional>

#include "hosts/qt/form/widget_tree.h"
#include "tessaria/browse_definition.h"
#include "tessaria/conversion.h"
#include "tessaria/masks.h"
#include "tessaria/qt/surface.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"

namespace tessaria::qt {
namespace {

Q_LOGGING_CATEGORY(fields, "tessaria.fields")

/// One field on its form.
class Mistakes {
 public:
  Mistakes(QWidget& field, const tsText& control)
      : field_(field), control_(control), controls_(formOf(&field)->findChildren<QWidget*>()) {}

  void tell() const {
    checkName("LabelAssociado", control_.LabelAssociado(),
              [](QWidget* label) { return qobject_cast<QLabel*>(label) != nullptr; });
    checkName("TxtIrmao", control_.TxtIrmao(),
              [](QWidget* sibling) { return dynamic_cast<Surface*>(sibling) != nullptr; });
    if (!isAction(control_.ObjetoCancelar()))
      checkName("ObjetoCancelar", control_.ObjetoCancelar(), [](QWidget*) { return true; });
    checkMask();
    checkLookup();
    checkPair();
  }
  static void warn(const QWidget& field, const QString& text) {
    qCWarning(fields).noquote() << QStringLiteral("field '%1': %2").arg(field.objectName(), text);
  }

 private:
  static bool isNamed(const QObject* object, const String& name) {
    return EqualNoCase(fromQt(object->objectName()), Trim(name));
  }
  QWidget* named(const String& name) const {
    for (QWidget* control : controls_)
      if (isNamed(control, name)) return control;
    return nullptr;
  }
  bool isAction(const String& name) const {
    const auto actions = formOf(&field_)->findChildren<QAction*>();
    return std::any_of(actions.begin(), actions.end(),
                       [&](const QAction* action) { return isNamed(action, name); });
  }

  template <class IsOfKind>
  void checkName(const char* property, const String& name, IsOfKind isOfKind) const {
    if (Trim(name).empty()) return;
    QWidget* const found = named(name);
    if (found && isOfKind(found)) return;
    warn(field_, QStringLiteral("%1 '%2' is %3")
                     .arg(QLatin1String(property), toQt(name),
                          found ? QStringLiteral("a control of another kind")
                                : QStringLiteral("not on this form")));
  }

  void checkMask() const {
    const String mask = control_.Mascara();
    if (mdlObjTxt::IsNumericMask(mask)) return;
    for (const char16_t literal : mdlObjTxt::MontaItensMascara(mask, {}))
      if (QChar(literal).isLetterOrNumber())
        warn(field_,
             QStringLiteral("mask '%1': '%2' is no slot but a literal, which is removed from "
                            "what is typed")
                 .arg(toQt(mask), QChar(literal)));
  }

  void checkLookup() const {
    const auto kind = control_.TipoControle();
    if (kind != TipoControle::Browse && kind != TipoControle::Descricao) return;
    if (control_.BrowseTable().empty() || !control_.Browse()->BrowseTable().empty()) return;
    warn(field_, QStringLiteral("BrowseTable '%1' is given in the flat text only, and the lookup "
                                "reads its definition")
                     .arg(toQt(control_.BrowseTable())));
  }

  void checkPair() const {
    if (control_.TipoControle() != TipoControle::Browse) return;
    const auto* const sibling = dynamic_cast<const Surface*>(named(control_.TxtIrmao()));
    const auto column = sibling ? sibling->ownProperty(u"BrwCampoIrmao") : std::nullopt;
    const String own = control_.BrwCampo();
    const String theirs = column ? CStr(*column) : String();
    if (own.empty() || theirs.empty() || EqualNoCase(own, theirs)) return;
    warn(field_, QStringLiteral("its column '%1' is not the sibling column '%2' of '%3': the "
                                "columns of a pair are swapped")
                     .arg(toQt(own), toQt(theirs), toQt(control_.TxtIrmao())));
  }

  QWidget& field_;
  const tsText& control_;
  const QList<QWidget*> controls_;
};

}  // namespace

void warnOfUnknownSettings(const QWidget& field, const std::vector<String>& keys) {
  for (const String& key : keys)
    Mistakes::warn(field, QStringLiteral("there is no setting '%1'").arg(toQt(key)));
}

void warnOfMistakes(QWidget& field, const tsText& control) { Mistakes(field, control).tell(); }

}  // namespace tessaria::qt
