#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "qt/window_test.h"

namespace velmora::test {
namespace {

struct Entry {
    std::string name;
    std::string caption;
    std::vector<Entry> list{};

    friend bool operator==(const Entry&, const Entry&) = default;
    friend void PrintTo(const Entry& entry, std::ostream* out) {
        *out << entry.name << " \"" << entry.caption << "\" "
             << ::testing::PrintToString(entry.list);
    }
};

std::vector<Entry> Read(const QWidget& bar) {
    std::vector<Entry> entries;
    for (const QAction* const action : bar.actions()) {
        entries.push_back(
            {action->objectName().toStdString(), action->text().toStdString(),
             action->menu() == nullptr ? std::vector<Entry>() : Read(*action->menu())});
    }
    return entries;
}

class MenuTest : public WindowTest {
protected:
    std::vector<Entry> MenuOf(ScreenId id) {
        Open(id);
        return Read(*window->menuBar());
    }
};

// clang-format off

TEST_F(MenuTest, Form1HasItsEntriesAndSpacersInOrder) {
    EXPECT_THAT(MenuOf(ScreenId::Form1), ElementsAreArray(std::vector<Entry>{
        {"Vacio1", ""}, {"Vacio2", ""}, {"Nuevaempresa", "Iniciar"}, {"Vacio3", ""},
        {"vacio4", ""}, {"salir", "Salir"}}));
}

TEST_F(MenuTest, Form2HasItsEntriesAndSpacersInOrder) {
    EXPECT_THAT(MenuOf(ScreenId::Form2), ElementsAreArray(std::vector<Entry>{
        {"vacio1", ""}, {"vacio2", ""},
        {"continuar", "Continuar", {
            {"datosiniciales", "Datos iniciales: Jornadas y Tareas"},
            {"contaminantes", "Contaminantes"}, {"calculos", "Cálculos"},
            {"resulatadofinal", "Resultado final"}}},
        {"vacio30", ""}, {"vacio32", ""}, {"Regresar", "Regresar"}, {"vacio40", ""},
        {"vacio50", ""}, {"recuperardatos", "Recuperar datos"}, {"vacio51", ""}, {"vacio52", ""},
        {"imprimir", "Imprimir"}, {"vacio53", ""}, {"vacio54", ""}, {"salir", "Salir"}}));
}

TEST_F(MenuTest, Form3HasItsEntriesAndSpacersInOrder) {
    EXPECT_THAT(MenuOf(ScreenId::Form3), ElementsAreArray(std::vector<Entry>{
        {"vacio1", ""}, {"vacio2", ""},
        {"continuar", "Continuar/Regresar", {
            {"contaminantes", "Contaminantes"}, {"pagina5", "Cálculos"},
            {"datosdeempresa", "Datos de empresa"}, {"resultadofinal", "Resultado final"}}},
        {"vacio8", ""}, {"vacio9", ""}, {"imprimir", "Imprimir"}, {"vacio20", ""},
        {"vacio22", ""}, {"salir", "Salir"}}));
}

TEST_F(MenuTest, Form4HasItsEntriesAndSpacersInOrder) {
    EXPECT_THAT(MenuOf(ScreenId::Form4), ElementsAreArray(std::vector<Entry>{
        {"vacio1", ""}, {"vacio7", ""},
        {"continuar", "Continuar/Regresar", {
            {"pagina5", "Cálculos"}, {"datosiniciales", "Datos iniciales: Jornadas y Tareas"},
            {"datosdeempresa", "Datos de empresa"}, {"resultadosfinales", "Resultado final"}}},
        {"vacio10", ""}, {"vacio11", ""}, {"imprimir", "Imprimir"}, {"vacio22", ""},
        {"vacio23", ""}, {"salir", "Salir"}}));
}

TEST_F(MenuTest, Form5HasItsEntriesAndSpacersInOrder) {
    EXPECT_THAT(MenuOf(ScreenId::Form5), ElementsAreArray(std::vector<Entry>{
        {"vacio1", ""}, {"vacio2", ""},
        {"introducirdatos", "Introducir datos", {
            {"introprimero", "Primer dia"}, {"introsegundo", "Segundo dia"},
            {"introtercero", "Tercer dia"}}},
        {"vacio3", ""}, {"vacio4", ""},
        {"recuperar", "Recuperar datos/cálculos", {
            {"recupprimerdia", "Primer dia"}, {"recupsegundodia", "Segundo dia"},
            {"recuptercerdia", "Tercer dia"}}},
        {"vacio5", ""}, {"vacio6", ""},
        {"continuar", "Continuar/Regresar", {
            {"datosiniciales", "Datos iniciales: Jornadas y Tareas"},
            {"contaminantes", "Contaminantes"}, {"resultadosfinales", "Resultado final"},
            {"datosempresa", "Datos de empresa"}}},
        {"vacio9", ""}, {"vacio14", ""}, {"imprimir", "Imprimir"}, {"vacio15", ""},
        {"salir", "Salir"}}));
}

TEST_F(MenuTest, Form6HasItsEntriesAndSpacersInOrder) {
    EXPECT_THAT(MenuOf(ScreenId::Form6), ElementsAreArray(std::vector<Entry>{
        {"vacio1", ""}, {"vacio2", ""},
        {"regresar", "Continuar/Regresar", {
            {"calculos", "Cálculos"}, {"contaminantes", "Contaminantes"},
            {"datosiniciales", "Datos  iniciales: Jornadas y Tareas"},
            {"datosdeempresa", "Datos de empresa"}}},
        {"vacio10", ""}, {"vacio11", ""}, {"guardararchivo", "Guardar en disco "},
        {"vacio21", ""}, {"vacio22", ""}, {"imprimir", "Imprimir"}, {"vacio30", ""},
        {"vacio32", ""}, {"salir", "Salir"}}));
}

// clang-format on

}  // namespace
}  // namespace velmora::test
