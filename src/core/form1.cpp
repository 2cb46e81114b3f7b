#include "core/form1.h"

#include <algorithm>
#include <array>

#include "forms/palette.h"

namespace velmora {

namespace {

constexpr Color kDarkBlue = 0x800000;
constexpr Color kBlack = 0x000000;

constexpr Face kFace{ScreenId::Form1, ".     Velmora / h1", {0, 0, 11355, 8310}};

// clang-format off
constexpr Row kPicture1{.name = "Picture1", .box = {1680, 1200, 9255, 4575},
                        .spoken = "Velmora: evaluación de la exposición a agentes químicos"};

constexpr std::array<StandingControl<Form1>, 7> kControls = {{
    {&Form1::Label1, {.name = "Label1", .box = {720, 120, 11055, 615}, .text = "Velmora",
      .look = {.family = Family::Verdana, .points = 14.25, .bold = true, .align = Align::Center, .fore = kDarkBlue, .back = kWhite}}},
    {&Form1::Label6, {.name = "Label6", .box = {2760, 600, 7935, 255},
      .text = "Conforme a la norma UNE-689  y  a la Guía de Agentes Químicos",
      .look = {.family = Family::TimesNewRoman, .points = 12, .bold = true, .fore = kDarkBlue}}},
    {&Form1::Label4, {.name = "Label4", .box = {5520, 6000, 6255, 375},
      .text = "Material didactico de apoyo para cursos de actualización  ", .look = {.points = 12}}},
    {&Form1::Label7, {.name = "Label7", .box = {5640, 6480, 3135, 255}, .text = "Version V.1.0        800 x 600 pixels"}},
    {&Form1::Label2, {.name = "Label2", .box = {4200, 6840, 7215, 255},
      .text = "Hoja de cálculo diaria de la exposición, con sus conclusiones"}},
    {&Form1::Label3, {.name = "Label3", .box = {4440, 7200, 7455, 255}, .text = "Velmora, software libre para la higiene industrial"}},
    {&Form1::Label5, {.name = "Label5", .box = {9120, 7680, 2295, 375}, .look = {.fore = kBlack}}},
}};
// clang-format on

}  // namespace

Form1::Form1(const Environment& environment) : BaseScreen(environment, kFace, Label5) {
    PlaceControls();
    PlaceMenu();
}

void Form1::PlaceControls() {
    Place(Picture{"splash"}, kPicture1);
    Place(kControls);
}

void Form1::PlaceMenu() {
    SetMenu<Form1>({{"Vacio1 Vacio2", "Nuevaempresa", "Iniciar", &Form1::Nuevaempresa_Click},
                    {"Vacio3 vacio4", "salir", "Salir", &Form1::salir_Click, {}, true}});
}

void Form1::Nuevaempresa_Click() {
    // A new evaluation clears the company's data only: plan and results stay in force on purpose.
    std::ranges::fill(environment_.record.DatosEmpresa, std::string());
    environment_.chain.Go(ScreenId::Form2);
}

void Form1::salir_Click() { Salir(environment_.host, MsgBoxStyle::YesNoInformation); }

}  // namespace velmora
