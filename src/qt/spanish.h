#pragma once

class QApplication;

namespace velmora {

/// Makes the toolkit's own buttons and dialogs speak Spanish, whatever the machine's language. What
/// the toolkit's translation leaves in English is filled in here.
void SpeakSpanish(QApplication& application);

}  // namespace velmora
