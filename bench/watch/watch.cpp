// Loaded by the environment alone into an unmodified program, ours or the empty window:
//   QT_PLUGIN_PATH=<folder> QT_QPA_GENERIC_PLUGINS=velmora_watch VELMORA_WATCH=<descriptor>
// Once the first window has been painted it writes the moment, the resident memory and the window's
// size to the descriptor, and ends the process.

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QSize>
#include <QTimer>
#include <QVariant>

#include <chrono>
#include <cstdlib>
#include <sstream>

#include <unistd.h>

#include "resident_memory.h"

namespace {

class Watcher : public QObject {
    Q_OBJECT

public:
    explicit Watcher(int descriptor) : descriptor_(descriptor) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!seen_ && event->type() == QEvent::Paint && watched->inherits("QMainWindow")) {
            seen_ = true;
            QTimer::singleShot(0, watched, [this, watched] { Report(*watched); });
        }
        return false;
    }

private:
    void Report(const QObject& window) const {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const QSize size = window.property("size").toSize();
        std::ostringstream line;
        line << std::chrono::nanoseconds(now).count() << ' ' << velmora::bench::ResidentMemory()
             << ' ' << size.width() << ' ' << size.height() << '\n';
        const std::string text = line.str();
        const bool written = write(descriptor_, text.data(), text.size()) > 0;
        std::_Exit(written ? EXIT_SUCCESS : EXIT_FAILURE);
    }

    int descriptor_;
    bool seen_ = false;
};

class WatchPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "watch.json")

public:
    QObject* create(const QString& key, const QString& /*options*/) override {
        const int descriptor = qEnvironmentVariableIntValue("VELMORA_WATCH");
        if (key != QStringLiteral("velmora_watch") || descriptor == 0) return nullptr;
        return new Watcher(descriptor);
    }
};

}  // namespace

#include "watch.moc"
