#include "journeys/expected.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <stdexcept>

namespace velmora::journeys {

std::string BytesOf(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("can't read " + path);
    return file.readAll().toStdString();
}

Expected::Expected(std::string_view name)
    : path_(std::string(EVALUATIONS_FOLDER) + "/" + std::string(name) + ".doc"),
      bytes_(BytesOf(path_)) {
    // The texts of these evaluations have no letter on which Latin-1 and Windows-1252 differ.
    const QString text = QString::fromLatin1(bytes_.data(), static_cast<qsizetype>(bytes_.size()));
    for (QString line : text.split(QStringLiteral("\r\n"))) {
        if (line.startsWith(QLatin1Char('"'))) line = line.mid(1, line.size() - 2);
        lines_.push_back(line.toStdString());
    }
    constexpr std::size_t kLines = 1524;
    if (lines_.size() != kLines + 1) throw std::runtime_error(path_ + " isn't of 1524 lines");
}

PlanLine Expected::PlanOf(int day, int task) const {
    const int first = 22 + 9 * (day - 1) + 3 * (task - 1);
    return {std::to_string(day), std::to_string(task), Line(first),
            Line(first + 1),     Line(first + 2),      std::to_string(Agents(task))};
}

int Expected::Rows(int day, int task) const {
    const PlanLine line = PlanOf(day, task);
    return std::stoi(line[3]) + std::stoi(line[4]);
}

Agent Expected::AgentOf(int task, int place) const {
    const int first = 52 + 36 * (task - 1) + 6 * (place - 1);
    return {Line(first),     Line(first + 1), Line(first + 2),
            Line(first + 3), Line(first + 4), Line(first + 5)};
}

std::vector<std::string> Expected::Samples(int day, int task, int place) const {
    const int row = 6 * (task - 1) + place - 1;
    std::vector<std::string> samples;
    for (int column = 7; column <= 12; ++column) {
        const std::string& sample = Entry(day, 18 * row + column + 1);
        if (sample.empty()) break;
        samples.push_back(sample);
    }
    return samples;
}

}  // namespace velmora::journeys
