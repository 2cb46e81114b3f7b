#pragma once

#include "core/navigation.h"
#include "runtime/array.h"

namespace velmora {

/// The contaminant screen: the list of agents of each task, with their limit values.
///
/// Row r, from 1 to 6, is contaminant r of the task picked in `Combo1`: its number, name, VLA-ED,
/// VLA-EC and additive mark are `Text1(5r-5)` to `Text1(5r-1)`, its sampling time is `Text3(r-1)`
/// and its unit `Combo13(r-1)`. The screen opens with no rows, whatever has been stored before; a
/// task with more than six contaminants, which only a restored record can hold, ends on the
/// subscript error when it is picked.
class Form4 : public BaseScreen {
public:
    explicit Form4(const Environment& environment);

    void Form_Load() override;

    /// Empties the rows without a question and opens those of the task picked.
    void Combo1_Click();
    /// These three refuse every key.
    void Combo1_KeyPress(KeyCode& key);
    void Combo13_KeyPress(int Index, KeyCode& key);
    void Text3_KeyPress(int Index, KeyCode& key);
    /// Switches a sampling time between 30 and 15; 30 first, and any other content stays.
    void Text3_DblClick(int Index);
    /// Digits and one point in a limit value, one digit in an additive mark, any key elsewhere.
    void Text1_KeyPress(int Index, KeyCode& key);
    /// Stores the rows as the list of the task, and their names in the final table.
    void Command1_Click();
    /// Writes the stored list of the task into the rows.
    void Command3_Click();

    void pagina5_Click();
    void datosiniciales_Click();
    void datosdeempresa_Click();
    void resultadosfinales_Click();
    void imprimir_Click();
    void salir_Click();

    Label Label1, Label2, Label5;
    Array<Label, 0, 0> Label3;
    Array<Label, 0, 5> Label4;
    ComboBox Combo1;
    Array<ComboBox, 0, 5> Combo13;
    Array<TextCell, 0, 29> Text1;
    Array<TextCell, 0, 5> Text3;
    Button Command1, Command3;
    CommonDialog CommonDialog1;

private:
    void PlaceControls();
    void PlaceRow(int r);
    void PlaceMenu();

    Entero ContaminantsOfTask() const;
    void EmptyRows();
    void CerrarFilas();
    void OpenRows(Entero n);
    bool TaskIsPicked();
    bool RowsAreComplete(Entero n) const;
    void StoreRows(Entero n);

    void FilterMark(int Index, KeyCode& key);

    // The key filter's memory, for the life of the screen; only keys change it.
    Entero CifrasEd, PuntosEd;  ///< digits and points typed so far in the VLA-ED cell
    Entero CifrasEc, PuntosEc;  ///< the same in the VLA-EC cell
    Entero UltimaCelda;         ///< the cell of `Text1` that received the last key
};

}  // namespace velmora
