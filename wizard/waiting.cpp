#include "wizard/waiting.h"

#include <utility>

namespace tessaria::wizard {

Waiting::Waiting(const Wizard& wizard, const String& awaited, String failed)
    : wizard_(wizard), afterwards_(std::move(failed)) {
  wizard_.Estado(awaited);
}

Waiting::~Waiting() { wizard_.Estado(afterwards_); }

}  // namespace tessaria::wizard
