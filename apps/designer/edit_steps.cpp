#include "apps/designer/edit_steps.h"

#include <algorithm>

namespace tessaria::designer {
namespace {

QStringList withoutCaches(QStringList settings) {
  settings.removeIf(
      [](const QString& line) { return line.startsWith(QLatin1String("PosDataField=")); });
  return settings;
}

}  // namespace

bool sameSettings(const QStringList& one, const QStringList& other) {
  return one == other || withoutCaches(one) == withoutCaches(other);
}

void EditSteps::note(int position, const QString& property, const FieldState& before,
                     const FieldState& after) {
  QList<Step> joined;
  for (const Step& step : steps_.value(position - 1))
    if (step.property == property && sameSettings(step.after.settings, before.settings))
      joined << Step{property, step.before, after};
  if (!joined.isEmpty()) steps_[position - 1] << joined;
  steps_[position] << Step{property, before, after};
}

std::optional<QStringList> EditSteps::find(int position, const QString& property,
                                           const QStringList& now, const QVariant& assigned) const {
  const auto leadsBack = [&](const Step& step) {
    return step.property == property && step.before.value == assigned &&
           sameSettings(step.after.settings, now);
  };
  const auto leadsOn = [&](const Step& step) {
    return step.property == property && step.after.value == assigned &&
           sameSettings(step.before.settings, now);
  };
  const QList<Step> done = steps_.value(position - 1), next = steps_.value(position);
  const auto undone = std::find_if(done.rbegin(), done.rend(), leadsBack);
  if (undone != done.rend()) return undone->before.settings;
  const auto redone = std::find_if(next.rbegin(), next.rend(), leadsOn);
  if (redone != next.rend()) return redone->after.settings;
  return {};
}

}  // namespace tessaria::designer
