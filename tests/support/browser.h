#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

namespace velmora::test {

/// Stands in for the user's browser: keeps what it is asked to open.
class Browser : public QObject {
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    Q_INVOKABLE void Open(const QUrl& url) { opened << url; }

    QList<QUrl> opened;
};

}  // namespace velmora::test
