// The data control as its form and the fields see it.

#include "hosts/qt/form/form.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

class DataPort final : public WidgetPort<host::DataControl, Adodc> {
 public:
  using WidgetPort::WidgetPort;
  String ConnectionString() const override { return fromQt(widget().connectionString()); }
  String RecordSource() const override { return fromQt(widget().recordSource()); }
  host::RecordsetPtr RecordSet() const override { return widget().recordSet(); }
  void Refresh() override { widget().open(); }
};

}  // namespace

String Adodc::typeName() const { return u"Adodc"; }

host::WidgetPtr Adodc::makePort() { return std::make_shared<DataPort>(*this); }

}  // namespace tessaria::qt
