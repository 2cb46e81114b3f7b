#pragma once

#include "core/grid.h"
#include "core/navigation.h"
#include "runtime/array.h"

namespace velmora {

/// The final results screen: the table of all days, with the overall index of each contaminant,
/// and the way to save the evaluation.
class Form6 : public BaseScreen {
public:
    explicit Form6(const Environment& environment);

    void Form_Load() override;
    void Command1_Click();
    void regresar_Click();
    void calculos_Click();
    void contaminantes_Click();
    void datosiniciales_Click();
    void datosdeempresa_Click();
    void guardararchivo_Click();
    void imprimir_Click();
    void salir_Click();

    Label Label2, Label3, Label5, Label6;
    Array<Label, 0, final_table::kColumns - 1> Label4;  ///< headings, in the order of the columns
    /// Row by row of `HojaFinal`.
    Array<TextCell, 0, grid::kRows * final_table::kColumns - 1> Text1;
    Button Command1;
    CommonDialog CommonDialog1;

private:
    void PlaceControls();
    void PlaceMenu();
    void ShowHeadings();
    void CopyFinalTable();
    void ComputeOverallIndex();
    void ShowCellsInUse();
    void FillEmptyCells();
};

}  // namespace velmora
