#pragma once

#include "core/navigation.h"
#include "forms/screen.h"
#include "runtime/array.h"

namespace velmora {

/// The daily calculation sheet: one grid of text cells that serves the sampled days in turn.
///
/// The grid has 18 rows, six for each of three tasks: row R = (task - 1) * 6 + contaminant, from 1.
/// Its cells are `Text1` at (R - 1) * 18 + column, column 0 to 17, and `Text3` at (R - 1) * 4 +
/// column, column 0 to 3. The text of the cells is the working memory of the handlers: a number
/// computed by one reaches the next as text, with the precision of that text. The chain of buttons
/// is carried by their `Visible` and `Enabled` alone, and a handler only ever opens the next one.
class Form5 : public Screen {
public:
    explicit Form5(const Entorno& entorno);

    // Day slots (day_slots.cpp)
    void Form_Load() override;
    void introprimero_Click();
    void introsegundo_Click();
    void introtercero_Click();
    void recupprimerdia_Click();
    void recupsegundodia_Click();
    void recuptercerdia_Click();
    /// Blanks and hides the sheet. The argument is not used.
    void limpia(const Entero& c);
    /// Lays out an empty sheet for the day c.
    void intro(const Entero& c);
    /// Lays out the sheet and fills it from the slot of the day s.
    void recupera(const Entero& s);

    // The key filter of the measurements (key_filter.cpp)
    void Text1_KeyPress(int Index, KeyCode& tecla);

    // Task validation (task_validation.cpp): one button for each task
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    // Daily index (daily_index.cpp)
    void Command4_Click();

    // Short-exposure evaluation (short_exposure.cpp): one button for each task
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();

    // Workday conclusions (conclusions.cpp)
    void Command8_Click();
    /// Kept here, called by nothing: copies the Indice of each row whose A+ is the row's number
    /// less one to row a + 1 of the final table.
    void IndiceFinal(const Entero& a);

    void Timer1_Timer() override;
    void datosiniciales_Click();
    void contaminantes_Click();
    void resultadosfinales_Click();
    void datosempresa_Click();
    void imprimir_Click();
    void salir_Click();

    Array<TextCell, 0, 323> Text1;
    Array<TextCell, 0, 71> Text3;
    Array<Label, 0, 56> Label7;  ///< headings of Text1 by task, then the three task titles
    Array<Label, 0, 11> Label3;  ///< headings of Text3 by task
    TextCell Text2, Text4, Text5, Text6, Text7;  ///< the day's answers and sentences
    Label Label1, Label2, Label4;
    Label Label5;  ///< the clock
    Button Command1, Command2, Command3, Command4, Command5, Command6, Command7, Command8;
    CommonDialog CommonDialog1;

    Entero DiaActual;  ///< the day that the sheet shows, as the menu passed it; 0 before the first

private:
    struct ValidacionDeTarea;
    struct ExposicionCorta;
    struct Mezcla;

    void PlaceSheet();
    void PlaceRestOfScreen();

    Entero FilasEnUso(const Entero& tarea) const;
    void DisponerTarea(const Entero& tarea);
    void RellenarPlan(const Entero& tarea);
    void AbrirMediciones(const Entero& tarea, const Entero& filas);
    bool DiaIncoherente(const Entero& dia);
    void Abrir(Button& boton);
    void MostrarConclusiones();
    HojaDelDia* HojaDelDiaActual();

    void ValidarTarea(const ValidacionDeTarea& tarea);
    bool FaltanLimites(const ValidacionDeTarea& tarea) const;
    bool HayDatosEnLaPrimeraTarea() const;
    bool FaltanMuestras(const ValidacionDeTarea& tarea) const;
    bool HayHuecos(const ValidacionDeTarea& tarea) const;
    void CalcularFilas(const ValidacionDeTarea& tarea);
    template <class Cambio>
    void PorCadaMuestra(int base, Cambio cambio);

    void SumarGrupos();
    void MostrarMediasYDesviaciones();
    void CopiarIndicesSinGrupo();
    void RepartirSumas();

    void EvaluarExposicionCorta(const ExposicionCorta& tarea);
    void LlenarFilaSimple(int c, int d, Doble ec);
    void EvaluarNoAditivos(const ExposicionCorta& tarea);
    void EvaluarGruposDeUno(const ExposicionCorta& tarea);
    void LimiteDeMezclas(const ExposicionCorta& tarea);
    void EstadisticaDeMezclas(const ExposicionCorta& tarea);
    Mezcla ReunirMezcla(const ExposicionCorta& tarea, int grupo) const;
    void CalcularProbabilidades(const ExposicionCorta& tarea);

    void BuscarMuestraSobreLimite();
    bool HayMuestraSobreLimite(int minutos, Color color);
    void EscribirVeredictos(const Doble& indice, const Doble& probabilidad);
    void GuardarHoja();
    void LlevarAHojaFinal();

    /// Text of a cell of `Text1` read as a number.
    Doble Valor(int celda) const;

    Entorno entorno_;

    // Counters of the key filter: it alone touches them, and they outlive the layout of a day.
    Entero CifrasTecleadas;
    Entero PuntosTecleados;
    Entero CeldaFiltrada;
};

namespace hoja {

// The sheet's shape, for all of its files.
inline constexpr int kFilas = 18;
inline constexpr int kFilasPorTarea = 6;
inline constexpr int kColumnas = 18;       ///< of Text1
inline constexpr int kColumnas3 = 4;       ///< of Text3
inline constexpr int kPrimeraMuestra = 7;  ///< column of C1
inline constexpr int kUltimaMuestra = 12;  ///< column of C6

}  // namespace hoja

}  // namespace velmora
