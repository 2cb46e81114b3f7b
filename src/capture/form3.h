#pragma once

#include "core/navigation.h"
#include "runtime/array.h"

namespace velmora {

/// The plan screen: how many workdays and tasks there are, and what each task of each workday is
/// like.
///
/// The plan is fixed exactly while the caption of `Command1` is " NO OPERATIVO". The grid has a row
/// of six cells for each pair of workday and task, day by day and within a day task by task: row k,
/// counted from 1, is `Text1(6k-6)` to `Text1(6k-1)`. A plan that goes beyond three workdays or
/// three tasks, which only a restored record can hold, ends on the subscript error at load.
class Form3 : public BaseScreen {
public:
    explicit Form3(const Environment& environment);

    void Form_Load() override;

    /// A pick in the list `Index` (0 to 7). Warns of more than six samples after a pick in 6, and
    /// offers to start again after a pick in 0 or 1 while the plan is fixed.
    void Combo1_Click(int Index);
    /// Both refuse every key: a list changes by a pick, a cell by the program.
    void Combo1_KeyPress(int Index, KeyCode& key);
    void Text1_KeyPress(int Index, KeyCode& key);
    /// Fixes the plan: stores the two numbers and opens the entry row and the grid.
    void Command1_Click();
    /// Judges the entry row against the plan and stores it as one task of one workday.
    void Command2_Click();

    void contaminantes_Click();
    void pagina5_Click();
    void resultadofinal_Click();
    void datosdeempresa_Click();
    void imprimir_Click();
    void salir_Click();

    Label Label2;
    Array<Label, 2, 3> Label1;
    Array<Label, 0, 11> Label3;    ///< headings: 0 to 5 of the entry row, 6 to 11 of the grid
    Array<ComboBox, 0, 7> Combo1;  ///< 0 and 1 the two numbers, 2 to 7 the entry row
    Array<TextCell, 0, 53> Text1;
    TextCell Text2;  ///< a coloured mark without a role
    Button Command1, Command2;
    CommonDialog CommonDialog1;

private:
    /// The columns of the grid.
    enum GridColumn { kDay, kTask, kHours, kSamples30, kSamples15, kContaminants };
    /// The cell of row `k`, from 1.
    TextCell& Cell(Entero k, GridColumn column) { return Text1(6 * k - 6 + column); }

    void PlaceControls();
    void PlaceMenu();

    Entero RowsOfPlan() const;
    Entero CellsOfPlan() const;

    void OcultarEntrada();
    void MostrarEntrada();
    void ShowEntry(bool shown);
    void CloseCell(int i);
    void AbrirCeldas(Entero n);
    void NumerarFilas();
    void FillRows();
    void OfferRestart();

    bool EntryIsAccepted();
    void StoreEntry();
    void RefrescarRejilla();
    void WriteRow(Entero k, Entero d, Entero t);

    bool PlanIsComplete() const;
    void GoIfPlanComplete(ScreenId target);
};

}  // namespace velmora
