#include "session.h"

#include <QGenericPlugin>

namespace {

/// Makes the toolkit load the driver into an unmodified program.
class LockstepPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "lockstep.json")

public:
    QObject* create(const QString& key, const QString&) override {
        const QByteArray socket = qgetenv("LOCKSTEP_SOCKET");
        if (key != QStringLiteral("lockstep_driver") || socket.isEmpty()) return nullptr;
        return new lockstep::Session(socket);
    }
};

}  // namespace

#include "plugin.moc"
