#pragma once

namespace velmora {

/// Gives the lists and their items what a screen reader needs of them: a list keeps its name
/// whatever it shows, and an item can be picked from outside. May be called again.
void InstallAccessibleLists();

}  // namespace velmora
