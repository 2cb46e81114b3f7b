#include "session.h"

#include "actions.h"

#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <cstdlib>
#include <cstring>

namespace lockstep {

namespace {

constexpr int turnsOfRest = 3;
constexpr qint64 patienceMs = 30000;

}  // namespace

Session::Session(const QByteArray& socketPath) {
    turns_.setInterval(0);
    connect(&turns_, &QTimer::timeout, this, [this] { turn(); });
    // Plug-ins are made before the application is complete.
    QTimer::singleShot(0, this, [this, socketPath] { connectTo(socketPath); });
}

void Session::connectTo(const QByteArray& socketPath) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, socketPath.constData(), sizeof address.sun_path - 1);
    socket_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        std::_Exit(97);
    notifier_ = new QSocketNotifier(socket_, QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] { read(); });
    begin(QJsonArray());
}

void Session::read() {
    char block[65536];
    const ssize_t count = ::read(socket_, block, sizeof block);
    if (count <= 0) std::_Exit(98);  // the other side has gone
    input_.append(block, static_cast<qsizetype>(count));
    const qsizetype end = input_.indexOf('\n');
    if (end < 0) return;
    const QJsonArray action = QJsonDocument::fromJson(input_.left(end)).array();
    input_.remove(0, end + 1);
    begin(action);
}

void Session::begin(const QJsonArray& action) {
    action_ = action;
    error_.clear();
    modalBefore_ = QApplication::activeModalWidget();
    started_ = returned_ = false;
    quietTurns_ = 0;
    waiting_.start();
    turns_.start();
    const int number = ++number_;
    QTimer::singleShot(0, this, [this, number] {
        started_ = true;
        const QString error = perform(action_);
        if (number != number_) return;  // it was waiting on a box that a later action closed
        error_ = error;
        returned_ = true;
    });
}

void Session::turn() {
    const QWidget* modal = QApplication::activeModalWidget();
    const bool newModal = modal != nullptr && modal != modalBefore_;
    // A box that the action opened is waiting, or the action is over.
    const bool resting = started_ && (returned_ || newModal);
    quietTurns_ = resting ? quietTurns_ + 1 : 0;
    if (quietTurns_ >= turnsOfRest) {
        turns_.stop();
        answer(error_);
    } else if (waiting_.elapsed() > patienceMs) {
        turns_.stop();
        answer(QStringLiteral("the program does not come to rest"));
    }
}

void Session::answer(const QString& error) {
    QJsonObject reply = snapshot_.changes();
    if (!error.isEmpty()) reply.insert(QStringLiteral("error"), error);
    send(QJsonDocument(reply).toJson(QJsonDocument::Compact) + '\n');
}

void Session::send(const QByteArray& line) {
    for (qsizetype sent = 0; sent < line.size();) {
        const ssize_t count =
            ::write(socket_, line.constData() + sent, static_cast<size_t>(line.size() - sent));
        if (count <= 0) std::_Exit(98);
        sent += count;
    }
}

}  // namespace lockstep
