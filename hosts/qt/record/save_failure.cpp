#include "hosts/qt/record/save_failure.h"

#include "tessaria/error.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {

SaveFailure::SaveFailure(const std::exception_ptr& error) : number_(boundary::kInternalError) {
  try {
    std::rethrow_exception(error);
  } catch (const HostError& failure) {
    number_ = failure.Number();
    description_ = toQt(failure.Description());
  } catch (const std::exception& failure) {
    description_ = QString::fromUtf8(failure.what());
  } catch (...) {
    // Nothing is known about it.
  }
  if (description_.isEmpty()) description_ = toQt(ErrorDescription(number_));
}

bool SaveFailure::isRowChanged() const { return number_ == errors::RowChanged; }
bool SaveFailure::isInDoubt() const { return number_ == errors::WriteInDoubt; }

/// The numbers of the data layer.
bool SaveFailure::isOfDatabase() const {
  constexpr Long kFirst = 3000, kLast = 3999;
  return number_ < 0 || (number_ >= kFirst && number_ <= kLast);
}

QString SaveFailure::cause(bool isLost) const {
  if (isLost || number_ == errors::InvalidConnection)
    return QStringLiteral("a conexão com o banco de dados caiu");
  if (number_ == errors::Cancelled) return QStringLiteral("a operação foi cancelada");
  if (isRowChanged()) return QStringLiteral("outro usuário alterou o que seria gravado");
  return isOfDatabase() ? QStringLiteral("o banco de dados recusou")
                        : QStringLiteral("o programa recusou");
}

QString SaveFailure::details() const {
  return number_ == errors::Cancelled ? QString() : description_;
}

}  // namespace tessaria::qt
