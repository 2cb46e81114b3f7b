#include "property/judging.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "property/say.h"

namespace velmora::property {

namespace {

bool IsExtreme(double number) {
    const double size = std::fabs(number);
    return !(size < 1e100) || (size != 0 && size < 1e-100);
}

bool IsFrom0To(int last, Entero number) { return number >= 0 && number <= last; }

/// Whether a text is at all such that its number may be extreme: an exponent, or very many digits.
bool MayBeExtreme(const std::string& text) {
    return text.find_first_of("eE") != std::string::npos || text.size() > 90;
}

}  // namespace

double Value(std::string_view text) {
    try {
        return LeerValor(text).Value();
    } catch (const ErrorEjecucion&) {
        return std::numeric_limits<double>::infinity();
    }
}

double Shows(std::string text) {
    const std::size_t separator = text.find(DecimalSeparator());
    if (separator != std::string::npos) text.replace(separator, DecimalSeparator().size(), ".");
    return Value(text);
}

bool Agree(double a, double b) {
    return std::fabs(a - b) <= 1e-12 * std::max({1e-3, std::fabs(a), std::fabs(b)});
}

int SampledRows(const EvaluacionRecord& record, int day, int task) {
    return record.Muestras30(day, task).Value() + record.Muestras15(day, task).Value();
}

bool HasSoundSize(const EvaluacionRecord& record) {
    return IsFrom0To(3, record.NumJornadas) && IsFrom0To(3, record.NumTareas);
}

bool HasSoundSamples(const EvaluacionRecord& record) {
    for (int day = 1; day <= 3; ++day) {
        for (int task = 1; task <= 3; ++task) {
            if (!IsFrom0To(6, record.Muestras30(day, task)) ||
                !IsFrom0To(6, record.Muestras15(day, task)) || SampledRows(record, day, task) > 6) {
                return false;
            }
        }
    }
    return true;
}

bool HasSoundCounts(const EvaluacionRecord& record) {
    return std::ranges::all_of(record.NumContaminantes,
                               [](Entero count) { return IsFrom0To(6, count); });
}

bool HasExtremeNumbers(const EvaluacionRecord& record) {
    bool found = false;
    WalkTogether(record, record, [&](const Element&, const auto& value, const auto&) {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, Doble>) {
            found = found || IsExtreme(value.Value());
        }
    });
    for (const auto& row : record.HojaFinal) {
        for (const std::string& text : row) {
            found = found || (MayBeExtreme(text) && IsExtreme(Value(text)));
        }
    }
    return found;
}

bool HasExtremeCells(const Screenshot& screen) {
    for (std::size_t i = 0; i < screen.Size(); ++i) {
        const auto* const cell = std::get_if<TextCell>(&screen.At(i));
        if (cell != nullptr && MayBeExtreme(cell->Text) && IsExtreme(Value(cell->Text))) {
            return true;
        }
    }
    return false;
}

int ValidatedTask(const Step& step) {
    for (int task = 1; task <= 3; ++task) {
        if (step.Pressed(ScreenId::Form5, Say("Command", task))) return task;
    }
    return 0;
}

int EvaluatedTask(const Step& step) {
    for (int task = 1; task <= 3; ++task) {
        if (step.Pressed(ScreenId::Form5, Say("Command", task + 4))) return task;
    }
    return 0;
}

std::vector<double> UsableSamples(const Screenshot& sheet, int task, int contaminant) {
    std::vector<double> samples;
    for (int c = Col::kC1; c <= Col::kC6; ++c) {
        const double sample = Value(sheet.Cells("Text1")(At(task, contaminant, c)).Text);
        if (sample == 0) break;
        samples.push_back(sample);
    }
    return samples;
}

std::vector<Group> GroupsOf(const Screenshot& sheet, int task, int contaminants) {
    const auto Text1 = sheet.Cells("Text1");
    std::vector<Group> groups;
    for (int number = 1; number <= 6; ++number) {
        Group group;
        for (int c = 1; c <= contaminants; ++c) {
            if (Value(Text1(At(task, c, Col::kGroup)).Text) == number) group.members.push_back(c);
        }
        if (group.members.size() < 2) continue;
        for (int column = Col::kC1; column <= Col::kC6; ++column) {
            double sum = 0;
            bool common = true;
            for (const int c : group.members) {
                const double sample = Value(Text1(At(task, c, column)).Text);
                common = common && sample != 0;
                sum += sample;
            }
            if (!common) break;
            group.sums.push_back(sum);
        }
        groups.push_back(group);
    }
    return groups;
}

}  // namespace velmora::property
