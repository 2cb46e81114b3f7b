#pragma once

#include <QIcon>

#include <functional>

namespace velmora {

/// An icon that is made when it is first looked at: at the start nobody may ask for it.
QIcon LateIcon(std::function<QIcon()> make);

}  // namespace velmora
