#include "forms/key_filter.h"

#include "runtime/text.h"

namespace velmora {

void FilterNumber(TextCell& cell, KeyCode& key, Entero& digits, Entero& points) {
    if (key == kBackspace) {
        cell.Text.clear();
        digits = 0;
        points = 0;
    } else if (key == '.' && digits > 0 && points == 0) {
        ++points;
    } else if (IsDigit(key)) {
        ++digits;
    } else {
        key = kKeyRefused;
    }
}

}  // namespace velmora
