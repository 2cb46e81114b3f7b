#include "property/key_model.h"

#include "support/use.h"

namespace velmora::property {

namespace {

bool IsDigit(int key) { return key >= '0' && key <= '9'; }

}  // namespace

std::string KeyModel::AfterNumber(Counters& counters, const TextCell& cell, int key) {
    if (key == kBackspace) {
        counters = {};
        return "";  // locked or not
    }
    if (key == '.') {
        if (counters.digits == 0 || counters.points > 0) return cell.Text;
        ++counters.points;
        return use::AsTyped(cell, key);
    }
    if (!IsDigit(key)) return cell.Text;
    ++counters.digits;
    return use::AsTyped(cell, key);
}

std::string KeyModel::After(ScreenId screen, std::string_view array, int index,
                            const TextCell& cell, int key) {
    const bool grid = array == "Text1";
    if (screen == ScreenId::Form3 || (screen == ScreenId::Form4 && !grid)) return cell.Text;
    if (!grid || (screen != ScreenId::Form4 && screen != ScreenId::Form5)) {
        return use::AsTyped(cell, key);
    }
    if (index != cell_) {
        *this = {};
        cell_ = index;
    }
    if (screen == ScreenId::Form5) return AfterNumber(first_, cell, key);
    switch (index % 5) {
        case 2:
            return AfterNumber(first_, cell, key);
        case 3:
            return AfterNumber(second_, cell, key);
        case 4:  // one digit, the last one
            if (!IsDigit(key)) return cell.Text;
            return cell.Locked ? "" : std::string{static_cast<char>(key)};
        default:
            return use::AsTyped(cell, key);
    }
}

}  // namespace velmora::property
