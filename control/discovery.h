// Finding the connection, the sibling, the data control, the field and the label by name.
#pragma once

#include "control/surroundings.h"
#include "control/value.h"

namespace tessaria {

/// Notes which of a field's names resolve, and loads the current row.
class Discovery {
 public:
  /// All of them must outlive this object.
  Discovery(host::ControlSite& site, const FieldKind& kind, FormTies& ties, FieldContents& contents,
            const Surroundings& surroundings, ValueAssignment& value);
  Discovery(const Discovery&) = delete;
  Discovery& operator=(const Discovery&) = delete;

  /// Resolves "Irmao", "DataSource", "Campo", "Label", or "Todos" for all of them. Returns true if
  /// a field was bound and loaded, which only "Todos" can do.
  bool Find(StringView what);
  /// In the designer: opens the rows unless they are open, and caches the field's ordinal. Raises
  /// the errors of the database.
  void FindAtDesignTime();

 private:
  bool ConnectDatabase();
  bool FindDataControl();
  bool BindField();
  void LoadRow();
  std::shared_ptr<host::DataControl> ConfiguredControl() const;
  void CacheFieldOrdinal(const host::DataControl& control);
  bool CacheOrdinalOf(const host::Fields& fields);
  void TellNotFound(const String& what) const;

  host::ControlSite& site_;
  const FieldKind& kind_;
  FormTies& ties_;
  FieldContents& contents_;
  const Surroundings& surroundings_;
  ValueAssignment& value_;
};

}  // namespace tessaria
