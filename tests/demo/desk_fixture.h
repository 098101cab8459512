// The order desk with its window open, on a server that the tests share.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <memory>

#include "apps/demo/cluster.h"
#include "apps/demo/database.h"
#include "apps/demo/main_window.h"
#include "apps/demo/play/player.h"
#include "apps/demo/play/rows.h"

namespace tessaria::demo {

/// A temporary folder that the server's user can enter.
class ServerFolder {
 public:
  ServerFolder() {
    QFile::setPermissions(folder_.path(), QFile::permissions(folder_.path()) | QFile::ExeOther);
  }
  QString path(const char* name = "mesa") const {
    return folder_.filePath(QString::fromLatin1(name));
  }

 private:
  QTemporaryDir folder_{QDir::tempPath() + QLatin1String("/ttXXXXXX")};
};

class DeskTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<ServerFolder>();
    server_ = std::make_unique<Cluster>(folder_->path());
    server_->start();
  }
  static void TearDownTestSuite() {
    server_.reset();
    folder_.reset();
  }

  void SetUp() override {
    server_->start();
    database_ = std::make_unique<Database>(server_->connectionString(), server_.get());
    database_->open();
    window_ = std::make_unique<MainWindow>(*database_);
    window_->show();
    player_ = std::make_unique<Player>(*window_, QString());
  }
  void TearDown() override {
    for (const QString& failure : player_->failures()) ADD_FAILURE() << failure.toStdString();
  }

  Player& operatorsHands() { return *player_; }

  void goTo(const QString& code) {
    player_->press(QStringLiteral("Ctrl+L"));
    player_->type(code);
    player_->press(QStringLiteral("Return"));
    player_->expectText(QStringLiteral("codigo"), code);
  }
  void expectNotice(const QString& text) { player_->expectShown(QStringLiteral("situacao"), text); }

  static QString dropQuestion(const char* noun) {
    return QStringLiteral("O %1 não foi salvo. Desfazer o que foi digitado?")
        .arg(QString::fromLatin1(noun));
  }
  /// Cancels what was typed, and confirms the question.
  void dropInput(const char* noun, const char* key = "Alt+C") {
    player_->expectBox(dropQuestion(noun), {}, QStringLiteral("Alt+S"));
    player_->press(QString::fromLatin1(key));
  }

  /// One column of a customer as another user sees it; Null is an empty text, "?" no customer.
  static std::string stored(const char* column, const char* code) {
    const QList<Row> rows =
        readRows(server_->connectionString(),
                 QStringLiteral("select %1::text as v from clientes where codigo = '%2'")
                     .arg(QString::fromLatin1(column), QString::fromLatin1(code)));
    return rows.isEmpty() ? "?" : rows.first().first().second.toStdString();
  }
  static void asAnotherUser(const QString& statement) {
    readRows(server_->connectionString(), statement);
  }

  static std::unique_ptr<ServerFolder> folder_;
  static std::unique_ptr<Cluster> server_;
  std::unique_ptr<Database> database_;
  std::unique_ptr<MainWindow> window_;
  std::unique_ptr<Player> player_;
};

}  // namespace tessaria::demo
