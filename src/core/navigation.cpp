#include "core/navigation.h"

#include <array>

#include "runtime/error.h"

namespace velmora {

namespace {

constexpr std::uint32_t kSinImprimirAFichero = 524288;

}  // namespace

void Salir(Host& host, Estilo estilo) {
    if (host.MsgBox("¿Está seguro de que quiere salir?", estilo) != Respuesta::No) host.End(0);
}

void Imprimir(Host& host, CommonDialog& dialog, const Impresion& impresion) {
    std::string pregunta(impresion.aviso);
    for (const std::string_view linea :
         {"¿Desea continuar?", " ", "Pulsar 'Si' no admite cancelación posterior"}) {
        pregunta.append(kFinDeLinea).append(linea);
    }
    auto respuesta = Respuesta::Si;
    Intentar([&] { respuesta = host.MsgBox(pregunta, Estilo::SiNo); });
    if (respuesta == Respuesta::No) return;

    dialog.Flags = kSinImprimirAFichero;
    dialog.FromPage = impresion.primera_pagina;
    dialog.ToPage = impresion.ultima_pagina;
    Intentar([&] { host.ShowPrinter(dialog); });
    Intentar([&] { host.PrintForm(); });
}

std::string FormatoFecha(const std::tm& momento) {
    const auto dos = [](int n) {
        return std::string{static_cast<char>('0' + n / 10 % 10), static_cast<char>('0' + n % 10)};
    };
    return dos(momento.tm_mday) + ":" + dos(momento.tm_mon + 1) + ":" + dos(momento.tm_year % 100) +
           "     " + dos(momento.tm_hour) + ":" + dos(momento.tm_min) + ":" + dos(momento.tm_sec);
}

}  // namespace velmora
