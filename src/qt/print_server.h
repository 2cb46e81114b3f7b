#pragma once

namespace velmora {

/// Whether the print system may be asked: false where its server takes a connection and then gives
/// no answer within a few seconds, since the toolkit would wait for it for minutes. True where
/// there is no server, which the toolkit sees at once.
bool PrintServerAnswers();

}  // namespace velmora
