// What the undo steps of single properties did to the settings of a field.
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

namespace tessaria::designer {

/// Whether two lists store the same, apart from what a field caches by itself.
bool sameSettings(const QStringList& one, const QStringList& other);

/// A field's settings, and the value of one of its properties.
struct FieldState {
  QStringList settings;
  QVariant value;
};

/// Designer undoes a change of one property by assigning the former value, which does not take back
/// what the first assignment has done to other properties. These notes tell, for an assignment at a
/// position of the undo stack, the settings that it has to lead to.
class EditSteps {
 public:
  /// Notes an assignment. `position` is the index of the undo stack while it runs: that of the step
  /// that begins. Designer may join it with the step before when that is one of the same property.
  void note(int position, const QString& property, const FieldState& before,
            const FieldState& after);

  /// The settings after the step that an assignment at this position undoes or redoes; empty when
  /// it is neither. `now` is the state before the assignment.
  std::optional<QStringList> find(int position, const QString& property, const QStringList& now,
                                  const QVariant& assigned) const;

 private:
  struct Step {
    QString property;
    FieldState before, after;
  };

  QMap<int, QList<Step>> steps_;  ///< by position; the last one of a position is the newest
};

}  // namespace tessaria::designer
