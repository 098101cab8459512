#include "apps/check-server/check_server.h"

#include <ostream>

#include <tessaria/error.h>
#include <tessaria/odbc/connection.h>
#include <tessaria/postgres/connection.h>
#include <tessaria/utf8.h>

#include "apps/check-server/guarantee.h"

namespace tessaria::check {
namespace {

struct Totals {
  int kept = 0, notKept = 0, unknown = 0;
};

Finding Check(const Guarantee& guarantee, Subject& subject) {
  try {
    return guarantee.check(subject);
  } catch (const std::exception& error) {
    return NotKept(TextOf(error));
  }
}

void Tell(const Guarantee& guarantee, const Finding& finding, Totals& totals, std::ostream& out) {
  switch (finding.verdict) {
    case Verdict::Kept:
      ++totals.kept;
      out << "kept         " << guarantee.name << "\n";
      return;
    case Verdict::NotKept:
      ++totals.notKept;
      out << "NOT kept     " << guarantee.name << ": " << finding.why << "\n";
      return;
    case Verdict::CannotTell:
      ++totals.unknown;
      out << "cannot tell  " << guarantee.name << ": " << finding.why << "\n";
  }
}

// Each check has sessions of its own, so that none can spoil the next.
Totals CheckAll(Subject& subject, std::ostream& out) {
  Totals totals;
  for (const auto& group :
       {StatementGuarantees(), RowGuarantees(), TypeGuarantees(), WaitGuarantees()}) {
    for (const Guarantee& guarantee : group) {
      Tell(guarantee, Check(guarantee, subject), totals, out);
      out.flush();
      subject.Restore();
    }
  }
  return totals;
}

}  // namespace

int CheckServer(const Options& options, std::ostream& out, std::ostream& error) {
  try {
    const bool isOdbc = options.driver == "odbc";
    Subject subject(isOdbc ? odbc::CreateConnection : postgres::CreateConnection,
                    FromUtf8(options.connection), options.schema);
    out << subject.ServerName() << ", driver " << options.driver << "\n";
    const Totals totals = CheckAll(subject, out);
    out << totals.kept << " kept, " << totals.notKept << " not kept, " << totals.unknown
        << " cannot be told\n";
    return totals.notKept + totals.unknown == 0 ? 0 : 1;
  } catch (const std::exception& failure) {
    error << "tessaria-check-server: " << TextOf(failure) << "\n";
    return 2;
  }
}

}  // namespace tessaria::check
