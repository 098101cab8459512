// The change notifications of a field's properties.

#include <cmath>

#include "hosts/qt/boundary/after_entry.h"
#include "hosts/qt/control/tstext.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

bool isNotANumber(const QVariant& value) {
  return value.typeId() == QMetaType::Double && std::isnan(value.toDouble());
}

bool readsTheSame(const QVariant& a, const QVariant& b) {
  return a == b || (isNotANumber(a) && isNotANumber(b));
}

}  // namespace

/// Called before anything may change the field.
void TsText::watchChanges() const {
  afterEntry(const_cast<TsText&>(*this),
             [](QWidget& field) { static_cast<TsText&>(field).reportChanges(); });
}

/// Each property is compared when its turn comes: a slot may have changed it meanwhile.
void TsText::reportChanges() {
  const QPointer<TsText> self(this);
  const auto tell = [&](auto& known, const auto& now, bool isSame, auto signal) {
    if (isSame) return;
    known = now;
    guarded(this, [&] { emit(this->*signal)(now); });
  };
  const auto announced = [this]() -> Announced& { return parts_->announced; };
  const auto isHere = [&] { return self && parts_; };
  if (!isHere()) return;
  const QVariant value = toQVariant(parts_->control.Value());
  tell(announced().value, value, readsTheSame(value, announced().value), &TsText::valueChanged);
  if (!isHere()) return;
  const QString texto = toQt(parts_->control.Texto());
  tell(announced().texto, texto, texto == announced().texto, &TsText::textoChanged);
  if (!isHere()) return;
  const bool enabled = parts_->control.Enabled();
  tell(announced().enabled, enabled, enabled == announced().enabled, &TsText::enabledChanged);
  if (!isHere()) return;
  const bool isValid = parts_->control.LastValidaStatus();
  tell(announced().isValid, isValid, isValid == announced().isValid,
       &TsText::lastValidaStatusChanged);
}

}  // namespace tessaria::qt
