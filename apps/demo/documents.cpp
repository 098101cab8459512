#include "apps/demo/documents.h"

#include "tessaria/qt/text.h"
#include "tessaria/validators.h"

namespace tessaria::demo {
namespace {

constexpr int kCpfLength = 11;

}  // namespace

Person personOf(const QString& digits) {
  return digits.size() > kCpfLength ? Person::Legal : Person::Natural;
}

bool isValidDocument(Person person, const QString& digits) {
  const String text = qt::fromQt(digits);
  return person == Person::Natural ? IsCpf(text) : IsCnpj(text);
}

}  // namespace tessaria::demo
