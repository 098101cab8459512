#include "hosts/qt/widgets/simple_items.h"

#include <QEvent>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "tessaria/conversion.h"
#include "tessaria/host/widgets.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/variants.h"

namespace tessaria::qt {

// --- Labels, buttons, displays ------------------------------------------------------------------

LabelItem::LabelItem(QLabel& label, const DialogGate& gate, const QString& caption)
    : DialogItemOf(label, gate), label_(label) {
  label.setTextFormat(Qt::PlainText);
  label.setText(caption);
}

String LabelItem::Caption() const { return fromQt(label_.text()); }
void LabelItem::Caption(const String& text) { label_.setText(toQt(text)); }

ButtonItem::ButtonItem(ColouredButton& button, const DialogGate& gate)
    : DialogItemOf(button, gate), button_(button) {
  button.setFocusPolicy(Qt::StrongFocus);
  QObject::connect(&button, &QPushButton::clicked, &button, [this] { raiseClick(OnClick); });
}

String ButtonItem::Caption() const { return fromQt(button_.caption()); }

Colour ButtonItem::TextColour() const {
  return button_.textColour().value_or(host::colour::WindowText);
}

DisplayItem::DisplayItem(QLineEdit& box, const DialogGate& gate)
    : DialogItemOf(box, gate), box_(box) {
  box.setReadOnly(true);
  box.setFocusPolicy(Qt::NoFocus);
}

String DisplayItem::Text() const { return fromQt(box_.text()); }
void DisplayItem::Text(const String& text) { box_.setText(toQt(text)); }

// --- Fields -------------------------------------------------------------------------------------

FieldItem::FieldItem(TsText& surface, const DialogGate& gate, const QString& accessibleName)
    : DialogItemOf(surface, gate),
      surface_(surface),
      control_(std::dynamic_pointer_cast<host::TsTextWidget>(makeWidget(surface))) {
  surface.setAccessibleName(accessibleName);
  focusTarget().setAccessibleName(accessibleName);
  QObject::connect(&surface, &TsText::changed, &surface, [this] { this->gate().raise(OnChange); });
  QObject::connect(&surface, &TsText::keyDown, &surface, [this](qint16& code, qint16& shift) {
    this->gate().raise(OnKeyDown, code, shift);
  });
  QObject::connect(&surface, &TsText::keyPress, &surface,
                   [this](qint16& code) { this->gate().raise(OnKeyPress, code); });
}

void FieldItem::Width(Long twips) {
  DialogItemOf::Width(twips);
  surface_.setFixedWidth(std::max(pixelsX(twips, surface_), surface_.minimumSizeHint().width()));
}

// --- Calendars ----------------------------------------------------------------------------------

namespace {

// The range of dates of the core.
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

/// Names for screen readers of the parts that show only a drawing or a number.
constexpr struct {
  const char* part;
  const char* name;
} kPartNames[] = {{"qt_calendar_prevmonth", "Mês anterior"},
                  {"qt_calendar_nextmonth", "Próximo mês"},
                  {"qt_calendar_monthbutton", "Mês"},
                  {"qt_calendar_yearbutton", "Ano"},
                  {"qt_calendar_yearedit", "Ano"}};

/// Moves the focus to the days when the year editor hides: Escape leaves it in the editor.
class BackToDays final : public QObject {
 public:
  BackToDays(QWidget& editor, QCalendarWidget& calendar) : QObject(&calendar) {
    editor.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    auto* calendar = static_cast<QWidget*>(parent());
    if (event->type() == QEvent::HideToParent)
      QMetaObject::invokeMethod(
          calendar, [calendar] { calendar->setFocus(Qt::OtherFocusReason); }, Qt::QueuedConnection);
    return false;
  }
};

/// The same day of another month, or the last day of that month.
QDate dayIn(int year, int month, int day) {
  return QDate(year, month, std::min(day, QDate(year, month, 1).daysInMonth()));
}

}  // namespace

CalendarItem::CalendarItem(QCalendarWidget& calendar, const DialogGate& gate)
    : DialogItemOf(calendar, gate),
      calendar_(calendar),
      year_(calendar.findChild<QWidget*>(QStringLiteral("qt_calendar_yearedit"))) {
  calendar.setLocale(QLocale(QLocale::Portuguese, QLocale::Brazil));
  calendar.setFirstDayOfWeek(Qt::Sunday);
  calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar.setDateEditEnabled(false);
  calendar.setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
  QObject::connect(&calendar, &QCalendarWidget::currentPageChanged, &calendar,
                   [this](int year, int month) { turnTo(year, month); });
  QObject::connect(&calendar, &QCalendarWidget::clicked, &calendar,
                   [this] { this->gate().raise(OnClick); });
  if (year_) new BackToDays(*year_, calendar);
  nameParts();
  describeParts();
}

void CalendarItem::nameParts() {
  for (const auto& row : kPartNames)
    if (auto* part = calendar_.findChild<QWidget*>(QLatin1String(row.part)))
      part->setAccessibleName(QString::fromUtf8(row.name));
}

void CalendarItem::turnTo(int year, int month) {
  const QDate day = calendar_.selectedDate();
  if (day.year() != year || day.month() != month)
    calendar_.setSelectedDate(dayIn(year, month, day.day()));
  describeParts();
}

/// A screen reader reads their names instead of what they show, so the descriptions repeat that.
void CalendarItem::describeParts() {
  for (auto* part : calendar_.findChildren<QToolButton*>())
    part->setAccessibleDescription(part->text());
}

Date CalendarItem::Value() const { return CDate(toVariant(calendar_.selectedDate())); }

void CalendarItem::Value(Date day) {
  calendar_.setSelectedDate(toQVariant(Variant(Date{std::floor(day.Days)})).toDate());
}

}  // namespace tessaria::qt
