#include "tessaria/qt/tstext.h"

#include <QKeyEvent>

#include "hosts/qt/control/field_mistakes.h"
#include "hosts/qt/control/tstext.h"
#include "hosts/qt/conversion/key_codes.h"
#include "hosts/qt/focus/delegate_editor.h"
#include "hosts/qt/focus/dialog_keys.h"
#include "hosts/qt/focus/focus_cycle.h"
#include "hosts/qt/form/first_show.h"
#include "hosts/qt/form/pages.h"
#include "hosts/qt/form/widget_tree.h"
#include "tessaria/browse_definition.h"
#include "tessaria/field_settings.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/qt/design_time.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/settle.h"
#include "tessaria/qt/text.h"
#include "tessaria/text_property_bag.h"

namespace tessaria::qt {
namespace {

template <class Definition>
TextPropertyBag::Factories::value_type factory() {
  return {Definition().ClassName(), [] { return std::make_shared<Definition>(); }};
}

TextPropertyBag makeBag() {
  return TextPropertyBag({factory<tessaria::Browse>(), factory<tessaria::Pesquisa>()});
}

}  // namespace

TsText::TsText(QWidget* parent) : QWidget(parent) {
  install();
  parts_ = std::make_shared<Parts>(*this);
  parts_->browseButton->setObjectName(QStringLiteral("btnBrowse"));
  setFocusPolicy(Qt::StrongFocus);
  adoptEdit();
  parts_->box.Mask = [this] {
    const tsText& c = parts_->control;
    return MaskInUse{c.Mascara(), c.ItensMascara(), c.PromptChar()};
  };
  parts_->box.Typed = [this] { return parts_->control.CurrentTyping(); };
  parts_->box.RestoreTyped = [this](const Typing& typing) {
    parts_->control.RestoreTyping(typing);
  };
  connect(this, &TsText::propertyChanged, this, &TsText::followControl);
  connectKeys();
  write([](tsText& c) { c.UserControl_InitProperties(); });
}

TsText::TsText(const FieldSettings& settings, QWidget* parent) : TsText(parent) {
  setObjectName(toQt(settings.name));
  guarded(this, [&] {
    TextPropertyBag bag = makeBag();
    WriteSettings(settings, bag);
    load(bag);
  });
  setValidator(settings.validator);
  setPlaceholderText(toQt(settings.placeholder));
  setMultiLineText(settings.multiLineText);
}

TsText::~TsText() {
  write([](tsText& c) { c.UserControl_Terminate(); });
  parts_->box.Mask = nullptr;
  parts_->box.Typed = nullptr;
  parts_->box.RestoreTyped = nullptr;
  retire(std::move(parts_));
}

/// Also if it was assigned without this widget's own properties.
void TsText::followControl(const QString& property) {
  if (property == QLatin1String("TipoControle"))
    parts_->browseButton->setKind(parts_->control.TipoControle());
  if (property == QLatin1String("PodeSerBranco")) describeEdit();
  if (property == QLatin1String("Enabled") && !designMode()) QWidget::setEnabled(isFieldEnabled());
  chooseEdit();
}

/// The widget's own flag, regardless of its ancestors.
void TsText::followWidget() {
  const bool enabled = !testAttribute(Qt::WA_ForceDisabled);
  if (!designMode() && enabled != isFieldEnabled()) setEnabled(enabled);
}

void TsText::connectKeys() {
  auto& surface = parts_->box.Surface;
  tsText* const c = &parts_->control;
  surface.OnKeyDown = [c](Integer& code, Integer& shift) { c->UserControl_KeyDown(code, shift); };
  surface.OnKeyPress = [c](Integer& code) { c->UserControl_KeyPress(code); };
  surface.OnKeyUp = [c](Integer& code, Integer& shift) { c->UserControl_KeyUp(code, shift); };
}

bool TsText::designMode() const { return designMode_ || formUnderDesign(this); }

/// Whoever gets the control may change it.
tsText& TsText::control() {
  watchChanges();
  return parts_->control;
}

const tsText& TsText::control() const { return parts_->control; }

// --- Settings

QStringList TsText::settings() const {
  QStringList lines = unreadable_;
  if (!lines.isEmpty()) return lines;
  guarded(this, [&] {
    TextPropertyBag bag = makeBag();
    parts_->control.UserControl_WriteProperties(bag);
    lines = toQt(bag.Save()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  });
  return lines;
}

void TsText::setSettings(const QStringList& lines) {
  if (lines.isEmpty()) return;
  unreadable_.clear();
  designError_.clear();
  guarded(this, [&] {
    try {
      TextPropertyBag bag = makeBag();
      bag.Load(fromQt(lines.join(QLatin1Char('\n'))));
      load(bag);
      if (!formUnderDesign(this)) warnOfUnknownSettings(*this, bag.UnreadKeys());
    } catch (const HostError& error) {
      if (!formUnderDesign(this))
        throw HostError(error.Number(),
                        u"Campo \"" + fromQt(objectName()) + u"\": " + error.Description());
      unreadable_ = lines;
      designError_ = toQt(error.Description());
    }
  });
  updateGeometry();
}

void TsText::load(const host::PropertyBag& bag) {
  watchChanges();
  const bool isDesigned = formUnderDesign(this) != nullptr;
  isDesigned ? parts_->control.ReadAtDesignTime(bag)
             : parts_->control.UserControl_ReadProperties(bag);
  followControl(QStringLiteral("TipoControle"));
  followControl(QStringLiteral("Enabled"));
  if (isDesigned) parts_->control.RedrawAtDesignTime();
}

// --- Methods

void TsText::refresh() {
  write([](tsText& c) { c.Refresh(); });
}

bool TsText::valida() {
  return read([this](const tsText&) { return control().Valida(); });
}

bool TsText::acionaChecaRelacao() {
  return read([this](const tsText&) { return control().AcionaChecaRelacao(); });
}

void TsText::atualizaIrmao(bool apenasTsBrowse, bool disparaBrowseReturn) {
  write([&](tsText& c) { c.AtualizaIrmao(apenasTsBrowse, disparaBrowseReturn); });
}

void TsText::disparaEventos(const QString& evento) {
  write([&](tsText& c) { c.DisparaEventos(fromQt(evento)); });
}

void TsText::clearLastValue() {
  write([](tsText& c) { c.ClearLastValue(); });
}

// --- The surface's events

void TsText::unhandled(int number, const QString& description) {
  emit unhandledError(number, description);
}

bool TsText::event(QEvent* event) {
  if (takesProbe(event)) return true;
  if (event->type() == QEvent::LayoutRequest) updateGeometry();
  return QWidget::event(event);
}

void TsText::resizeEvent(QResizeEvent*) {
  write([](tsText& c) { c.UserControl_Resize(); });
}

void TsText::showEvent(QShowEvent*) {
  if (formUnderDesign(this)) {
    // The mouse and the keys are the designer's.
    for (QWidget* part : {&parts_->face(), static_cast<QWidget*>(parts_->browseButton)})
      part->setAttribute(Qt::WA_TransparentForMouseEvents);
    return showDesignedSoon(*this);
  }
  QWidget* form = formOf(this);
  FocusCycle::of(window());
  if (designMode_ || wasShown(form)) {
    nameForAccessibility();
    return formShown();
  }
  // The form's own show comes next. A control that is added later has missed it.
  showFirstSoon(form);
}

void TsText::changeEvent(QEvent* event) {
  if (parts_ && event->type() == QEvent::PaletteChange) {
    parts_->site.applyColour();
    parts_->box.applyColours();
  }
  if (parts_ && event->type() == QEvent::EnabledChange) followWidget();
  QWidget::changeEvent(event);
}

// Keys reach the surface itself when its button has the focus.
void TsText::keyPressEvent(QKeyEvent* event) {
  const QPointer<TsText> self(this);
  Integer code = virtualKey(*event);
  Integer shift = shiftState(event->modifiers());
  event->ignore();
  if (window()->focusWidget() != parts_->browseButton) return;
  write([&](tsText& c) { c.UserControl_KeyDown(code, shift); });
  if (self && code != 0 && isDialogKey(*event))
    event->setAccepted(pressDialogButton(this, event->key()));
}

void TsText::keyReleaseEvent(QKeyEvent* event) {
  Integer code = virtualKey(*event);
  Integer shift = shiftState(event->modifiers());
  event->ignore();
  if (window()->focusWidget() == parts_->browseButton && !event->isAutoRepeat())
    write([&](tsText& c) { c.UserControl_KeyUp(code, shift); });
}

bool TsText::focusNextPrevChild(bool next) {
  if (isCellEditor(this) && !parts_->isLeftByTab) {
    leaveCell(next);
    return true;
  }
  return focusNextPage(window(), next) || QWidget::focusNextPrevChild(next);
}

/// The delegate opens the next cell. Without one the key comes back here, to move the focus.
void TsText::leaveCell(bool next) {
  const QPointer<TsText> self(this);
  if (!settle(this) || !self) return;
  parts_->isLeftByTab = true;
  tellDelegateOfTab(*this, next);
  if (self && parts_) parts_->isLeftByTab = false;
}

// --- Events

/// A handler may destroy the control: then nothing is left to do.
template <class Emit>
void TsText::Events::tell(Emit&& emitter) {
  if (!surface_) throw ControlGone{};
  surface_->watchChanges();
  emitter(*surface_);
  if (!surface_) throw ControlGone{};
}

void TsText::Events::Show() {
  tell([](TsText& s) { emit s.shown(); });
}

void TsText::Events::Change() {
  tell([](TsText& s) { emit s.changed(); });
}

void TsText::Events::KeyDown(Integer& KeyCode, Integer& Shift) {
  tell([&](TsText& s) { emit s.keyDown(KeyCode, Shift); });
}

void TsText::Events::KeyPress(Integer& KeyAscii) {
  tell([&](TsText& s) { emit s.keyPress(KeyAscii); });
}

void TsText::Events::KeyUp(Integer& KeyCode, Integer& Shift) {
  tell([&](TsText& s) { emit s.keyUp(KeyCode, Shift); });
}

void TsText::Events::BrowseReturn(bool& HouveAlteracao, Variant& LastValue) {
  const QVariant before = toQVariant(LastValue);
  QVariant lastValue = before;
  tell([&](TsText& s) { emit s.browseReturn(HouveAlteracao, lastValue); });
  if (lastValue != before) LastValue = toVariant(lastValue);
}

}  // namespace tessaria::qt
