#include "apps/demo/documents.h"

namespace tessaria::demo {
namespace {

constexpr int kCpfLength = 11;

}  // namespace

Person personOf(const QString& digits) {
  return digits.size() > kCpfLength ? Person::Legal : Person::Natural;
}

}  // namespace tessaria::demo
