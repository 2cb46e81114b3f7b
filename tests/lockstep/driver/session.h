#pragma once

#include "snapshot.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class QSocketNotifier;

namespace lockstep {

/// One conversation over a Unix socket: a line in is a JSON array, an action of actions.h; a line
/// out is a JSON object, the changes of the window since the last one.
///
/// An action runs from a timer, since one that opens a box does not return until the box is
/// closed. The answer is sent once the program rests again: when the action has returned and a few
/// turns of the event loop have passed, or when a box or dialog waits in front.
class Session : public QObject {
public:
    explicit Session(const QByteArray& socketPath);

private:
    void connectTo(const QByteArray& socketPath);
    void read();
    void begin(const QJsonArray& action);
    void turn();
    void answer(const QString& error);
    void send(const QByteArray& line);

    int socket_ = -1;
    QSocketNotifier* notifier_ = nullptr;
    QByteArray input_;
    Snapshot snapshot_;

    QTimer turns_;
    QElapsedTimer waiting_;
    QJsonArray action_;
    QString error_;
    QPointer<QWidget> modalBefore_;
    int number_ = 0;
    bool started_ = false;
    bool returned_ = false;
    int quietTurns_ = 0;
};

}  // namespace lockstep
