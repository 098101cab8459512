#include "hosts/qt/conversion/label_text.h"

#include <QTextDocument>

namespace tessaria::qt {
namespace {

QString withoutMarkup(const QLabel& label) {
  const QString text = label.text();
  const Qt::TextFormat format = label.textFormat();
  const bool rich = format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(text));
  if (!rich && format != Qt::MarkdownText) return text;
  QTextDocument document;
  if (rich)
    document.setHtml(text);
  else
    document.setMarkdown(text);
  return document.toPlainText().simplified();
}

}  // namespace

QString captionOf(const QLabel& label) {
  QString caption = withoutMarkup(label);
  caption.replace(QLatin1String("&&"), QString(QChar(0)));
  caption.remove(QLatin1Char('&'));
  return caption.replace(QChar(0), QLatin1Char('&'));
}

}  // namespace tessaria::qt
