#pragma once

namespace velmora {

/// Gives the entries of the menu bars, and of their lists, what a screen reader needs of them:
/// a spacer is a separator with a name, a title that moves at once can be pressed, and a press
/// from outside closes the open list and returns before the handler runs. May be called again.
void InstallAccessibleMenus();

}  // namespace velmora
