#pragma once

#include <QHash>
#include <QJsonObject>
#include <QString>

namespace lockstep {

/// What the program shows, told as the differences from the last time it was told.
///
/// Keys of the object, each only when it differs:
///   window  [objectName, title]
///   tabs    [control, ...] in tab order (told with the window)
///   menu    [[name, text, [[name, text], ...]], ...]
///   set     {control: [class, text, visible, enabled, locked, base, letters]}; the two colours
///           are null but for the sample cells, and a list has its items in the place of the first
///   gone    [control, ...]
///   modal   the box or dialog in front (always told, null when there is none)
class Snapshot {
public:
    QJsonObject changes();

private:
    QString window_;
    QString menu_;
    QHash<QString, QJsonArray> controls_;
};

}  // namespace lockstep
