#pragma once

#include "core/navigation.h"
#include "runtime/array.h"

namespace velmora {

/// The company data screen: nineteen free-text fields, and the way to a saved evaluation.
class Form2 : public BaseScreen {
public:
    explicit Form2(const Environment& environment);

    void Form_Load() override;
    void datosiniciales_Click();
    void contaminantes_Click();
    void calculos_Click();
    void resulatadofinal_Click();
    void Regresar_Click();
    void recuperardatos_Click();
    void imprimir_Click();
    void salir_Click();

    /// Sets each box from its element of `DatosEmpresa`.
    void ShowDatosEmpresa();

    Label Label2, Label3, Label4;
    Array<Label, 0, 19> Label1;  ///< 17 isn't on the screen
    Array<TextCell, 1, 19> Text1;
    CommonDialog CommonDialog1;

private:
    void PlaceControls();
    void PlaceMenu();
    void StoreFieldsAndGo(ScreenId target);
};

}  // namespace velmora
