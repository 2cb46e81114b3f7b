#include "guide.h"

#include <QFileDialog>
#include <QPrintDialog>

#include <iomanip>
#include <iostream>
#include <sstream>
#include <utility>

#include "support/robot.h"

namespace velmora::tour {

namespace {

std::string_view NameOf(const QDialog& modal) {
    if (qobject_cast<const QFileDialog*>(&modal) != nullptr) return "dialogo-fichero";
    if (qobject_cast<const QPrintDialog*>(&modal) != nullptr) return "dialogo-impresion";
    return "caja";
}

std::string Difference(std::string_view what, std::string_view seen, std::string_view expected) {
    std::ostringstream text;
    text << what << ": sale \"" << seen << "\" y debe salir \"" << expected << '"';
    return text.str();
}

}  // namespace

Guide::Guide(const std::filesystem::path& folder) : folder_(std::filesystem::absolute(folder)) {
    std::filesystem::create_directories(folder_);
    for (const auto& file : std::filesystem::directory_iterator(folder_)) {
        if (file.path().extension() == ".png") std::filesystem::remove(file.path());
    }
}

void Guide::Title(std::string_view text) {
    std::cout << '\n' << ++chapter_ << ". " << text << std::endl;
}

void Guide::Say(std::string_view text) { std::cout << "   " << text << std::endl; }

void Guide::Check(std::string_view what, std::string_view seen, std::string_view expected) {
    std::cout << "   " << what << ": " << seen << std::endl;
    CheckQuietly(what, seen, expected);
}

void Guide::CheckQuietly(std::string_view what, std::string_view seen, std::string_view expected) {
    ++checks_;
    if (seen == expected) return;
    differences_.push_back(Difference(what, seen, expected));
    std::cout << "   NO COINCIDE. " << differences_.back() << std::endl;
}

void Guide::Picture(const Robot& robot, std::string_view name) {
    std::ostringstream file;
    file << std::setw(2) << std::setfill('0') << ++pictures_ << '-' << name << ".png";
    robot.Snapshot((folder_ / file.str()).string());
}

void Guide::PictureBoxes(Robot& robot) {
    robot.on_modal = [this, &robot](const QDialog& modal) { Picture(robot, NameOf(modal)); };
}

bool Guide::Summary() const {
    std::cout << '\n'
              << checks_ << " comprobaciones, " << differences_.size() << " diferencias.\n"
              << pictures_ << " imágenes, el fichero y la página impresa están en "
              << folder_.string() << std::endl;
    for (const std::string& difference : differences_) {
        std::cerr << "NO COINCIDE. " << difference << '\n';
    }
    return differences_.empty();
}

}  // namespace velmora::tour
