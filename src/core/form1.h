#pragma once

#include "core/navigation.h"

namespace velmora {

/// The splash screen, on which the program starts.
class Form1 : public BaseScreen {
public:
    explicit Form1(const Environment& environment);

    void Nuevaempresa_Click();
    void salir_Click();

    Label Label1, Label2, Label3, Label4, Label5, Label6, Label7;

private:
    void PlaceControls();
    void PlaceMenu();
};

}  // namespace velmora
