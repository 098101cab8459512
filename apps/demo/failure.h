// A failure that the operator reads.
#pragma once

#include <QString>
#include <exception>

namespace tessaria::demo {

/// Thrown when the program cannot continue; `text` is complete sentences in Portuguese.
class Failure final : public std::exception {
 public:
  explicit Failure(QString text) : text_(std::move(text)), utf8_(text_.toUtf8()) {}
  const QString& text() const { return text_; }
  const char* what() const noexcept override { return utf8_.constData(); }

 private:
  QString text_;
  QByteArray utf8_;
};

}  // namespace tessaria::demo
