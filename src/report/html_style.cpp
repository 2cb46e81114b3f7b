#include "report/html_parts.h"

namespace velmora::report {

namespace {

constexpr std::string_view kPageStyle =
    R"(:root { --ink: #1b2430; --soft: #4d5a69; --navy: #123a63; --line: #c9d2dc; --pale: #f3f6f9; }
* { box-sizing: border-box; }
html { -webkit-text-size-adjust: 100%; }
body { margin: 0 auto; padding: 2.5rem 1.5rem 4rem; max-width: 74rem; color: var(--ink); background: #fff;
    font: 16px/1.5 "Segoe UI", "Helvetica Neue", "Liberation Sans", Arial, sans-serif;
    overflow-wrap: anywhere; }
header { border-top: 6px solid var(--navy); padding-top: 1.2rem; }
.antetitulo { margin: 0; color: var(--soft); letter-spacing: .04em; }
h1 { margin: .2rem 0 .4rem; font-size: 2rem; line-height: 1.2; color: var(--navy); }
.ficha { margin: 0; display: flex; flex-wrap: wrap; gap: .2rem 1.6rem; color: var(--soft); }
h2 { margin: 3rem 0 1rem; padding-bottom: .3rem; font-size: 1.35rem; line-height: 1.3;
    color: var(--navy); border-bottom: 1px solid var(--line); }
h3 { margin: 1.8rem 0 .6rem; font-size: 1.08rem; line-height: 1.3; }
p { max-width: 46rem; }
a { color: #0b5394; }
nav ol { display: flex; flex-wrap: wrap; gap: .3rem 1.2rem; list-style: none; margin: 1.4rem 0 0;
    padding: .7rem 0; border: solid var(--line); border-width: 1px 0; font-size: .92rem; }
dl { margin: 0; }
dt { color: var(--soft); font-size: .85rem; }
dd { margin: 0; }
.datos { display: grid; grid-template-columns: repeat(auto-fill, minmax(15rem, 1fr)); gap: .8rem 1.6rem; }
.tarjetas { display: grid; grid-template-columns: repeat(auto-fit, minmax(17rem, 1fr)); gap: 1rem; }
.tarjeta { border: 1px solid var(--line); border-radius: 4px; padding: 1rem 1.1rem; }
.tarjeta h3 { margin: 0 0 .7rem; }
.tarjeta p { margin: .4rem 0; }
.veredicto { position: relative; margin: .6rem 0; padding: .5rem .7rem .5rem 2.6rem; background: var(--pale);
    border: 0 solid var(--ink); border-left-width: 5px; }
.veredicto p { margin: 0; }
.veredicto .frase { font-weight: 600; font-size: .92rem; line-height: 1.35; margin-top: .2rem; }
.signo { position: absolute; left: .6rem; top: .55rem; fill: none; stroke: currentColor; stroke-width: 2;
    stroke-linecap: round; stroke-linejoin: round; border: 1.5px solid currentColor; border-radius: 50%; }
.v0 { border-left-style: dotted; }
.v1 { border-color: #1c6b41; background: #eef7f1; } .v1 .signo { color: #1c6b41; }
.v2 { border-color: #8a5a00; border-left-style: dashed; background: #fdf6e7; } .v2 .signo { color: #8a5a00; }
.v3 { border-color: #a11d1d; border-left-style: double; border-left-width: 8px; background: #fcefee; }
.v3 .signo { color: #fff; background: #a11d1d; }
.nota { color: var(--soft); font-size: .9rem; }
.falta { color: var(--soft); font-style: italic; }
.otra { margin: .8rem 0 0; padding: .5rem .8rem; border: 1px dashed #8a5a00; font-size: .92rem; }
.otra p, .otra ul { margin: 0; } .otra ul { padding-left: 1.2rem; }
.aviso { margin: 1.2rem 0 0; padding: .6rem .9rem; border-left: 5px solid var(--navy); background: var(--pale); }
.tabla { overflow-x: auto; margin: 1rem 0; }
table { border-collapse: collapse; font-size: .9rem; line-height: 1.35; font-variant-numeric: tabular-nums;
    overflow-wrap: break-word; }
caption { padding: 0 0 .5rem; text-align: left; color: var(--soft); max-width: 46rem; }
th, td { padding: .28rem .6rem; text-align: left; vertical-align: baseline; border-bottom: 1px solid var(--line); }
thead th { vertical-align: bottom; color: var(--navy); border-bottom: 2px solid var(--navy); }
tbody th { font-weight: 400; min-width: 7rem; }
tbody .grupo th { padding-top: .7rem; font-weight: 600; background: var(--pale); }
.n { text-align: right; }
.jornada table { font-size: .8rem; }
.jornada th, .jornada td { padding: .25rem .4rem; }
.jornada .tabla { overflow-wrap: normal; }
small { color: var(--soft); font-size: .85em; white-space: nowrap; }
.respuestas { display: grid; grid-template-columns: repeat(auto-fit, minmax(17rem, 1fr)); gap: .6rem 1.6rem;
    padding: .8rem 1rem; background: var(--pale); }
.respuestas dd { font-weight: 600; }
#tabla-revisar ~ thead th, #tabla-revisar ~ tbody td { vertical-align: top; }
#tabla-revisar ~ tbody td:nth-child(5), #tabla-revisar ~ tbody td:nth-child(6) { min-width: 6rem; }
#tabla-revisar ~ tbody td:nth-child(7) { min-width: 18rem; }
.caja { margin-top: 3rem; padding: .2rem 1.4rem 1rem; border: 2px solid var(--navy); border-radius: 4px; }
.caja h2 { margin-top: 1rem; } .caja td:last-child { min-width: 16rem; }
.formula { margin: .6rem 0; padding: .1rem 0 .1rem 1rem; border-left: 3px solid var(--line); }
figure { margin: 1.6rem 0 2.4rem; }
figcaption { margin-top: .4rem; color: var(--soft); font-size: .9rem; max-width: 46rem; }
.lienzo { overflow-x: auto; }
.lienzo svg { display: block; width: 100%; min-width: 40rem; max-width: 60rem; height: auto;
    font-family: inherit; }
svg text { font-size: 11px; fill: var(--ink); stroke: none; }
svg .cifra { fill: var(--soft); font-size: 10.5px; }
svg .menor { font-size: 8.5px; } svg .pequeno { font-size: 10px; }
svg .fuerte { font-weight: 600; }
svg .halo { stroke: #fff; stroke-width: 2.5px; stroke-linejoin: round; }
.rejilla, .hilo { stroke: #dde3ea; stroke-width: .7; }
.marco { fill: none; stroke: #7d8894; stroke-width: .8; }
.umbral { stroke: var(--ink); stroke-width: 1.4; stroke-dasharray: 6 3; }
.dia1 { fill: #123a63; stroke: #fff; stroke-width: .8; }
.dia2 { fill: #fff; stroke: #8a4b00; stroke-width: 1.8; }
.dia3 { fill: #3f8f6b; stroke: #10402b; stroke-width: 1; }
.ig { stroke: #555f6b; stroke-width: 3; }
.ajuste { stroke: var(--ink); stroke-width: 1.2; }
.nivel-ed { stroke: #a11d1d; stroke-width: 1.2; stroke-dasharray: 7 3; }
.nivel-ec { stroke: #6a2d91; stroke-width: 1.5; stroke-dasharray: 1.5 2.5; }
.curva { stroke: #4d5a69; stroke-width: 1.2; }
.zona-media { fill: #f0f2f5; } .zona-alta { fill: #dfe4ea; } .contorno { stroke: #7d8894; stroke-width: .6; }
.guia { stroke: #7d8894; stroke-width: .6; }
@media (max-width: 40rem) { body { padding: 1.2rem 1rem 3rem; } h1 { font-size: 1.5rem; } .caja { padding: .2rem .8rem .6rem; } }
@page { size: A4; margin: 24mm 15mm 20mm;
    @top-left { font: 8.5pt "Liberation Sans", Arial, sans-serif; color: #4d5a69; vertical-align: bottom; padding-bottom: 4mm; }
    @top-right { font: 8.5pt "Liberation Sans", Arial, sans-serif; color: #4d5a69; vertical-align: bottom; padding-bottom: 4mm; }
    @bottom-left { font: 8.5pt "Liberation Sans", Arial, sans-serif; color: #4d5a69; }
    @bottom-right { font: 8.5pt "Liberation Sans", Arial, sans-serif; color: #4d5a69; } }
@page apaisada { size: A4 landscape; margin: 19mm 12mm 14mm; }
@media print {
    body { max-width: none; padding: 0; font-size: 9.5pt; }
    nav { display: none; }
    h1 { font-size: 20pt; } h2 { font-size: 14pt; margin: 8mm 0 3mm; } h3 { font-size: 11pt; }
    h2, h3, caption, .antetitulo { break-after: avoid; }
    p, li { orphans: 3; widows: 3; }
    thead { display: table-header-group; }
    tr, figure, .tarjeta, .veredicto, .datos > div, .formula, .otra, .aviso, .respuestas { break-inside: avoid; }
    thead, .grupo { break-after: avoid; } tbody tr:first-child { break-before: avoid; }
    .tabla, .lienzo { overflow: visible; } .caja td:last-child { min-width: 60mm; }
    .tabla { margin: 2mm 0; }
    caption, figcaption { font-size: 8.5pt; }
    .lienzo svg { min-width: 0; max-width: none; max-height: 225mm; }
    .datos { grid-template-columns: repeat(3, 1fr); gap: 2mm 6mm; }
    dt { font-size: 8pt; }
    .tarjetas { grid-template-columns: repeat(3, 1fr); gap: 3mm; }
    .tarjeta { padding: 2.5mm; font-size: 8.5pt; }
    .tarjeta h3 { margin: 0 0 1.5mm; } .tarjeta p { margin: 1mm 0; }
    .veredicto { margin: 1.5mm 0; padding: 1.2mm 1.5mm 1.2mm 8mm; } .veredicto p { margin: 0; }
    .veredicto .frase, .otra { font-size: 8pt; }
    .signo { left: 1.5mm; top: 1.4mm; width: 4.5mm; height: 4.5mm; }
    table { font-size: 8.5pt; } th, td { padding: .6mm 1.6mm; }
    .jornadas { page: apaisada; } .jornadas > h2 { margin-top: 0; }
    .jornadas > p { max-width: none; margin: 0; font-size: 8.5pt; }
    .jornada + .jornada { break-before: page; } .jornada h3 { margin: 2mm 0 1mm; }
    .jornada table { font-size: 7.4pt; width: 100%; line-height: 1.15; }
    .jornada th, .jornada td { padding: .4mm .9mm; } .jornada .grupo th { padding-top: .8mm; }
    .respuestas { grid-template-columns: 3fr 2fr 4fr 3fr 5fr; padding: 2mm 3mm; font-size: 8.5pt; }
    #tabla-revisar ~ tbody td:nth-child(5), #tabla-revisar ~ tbody td:nth-child(6) { min-width: 17mm; }
    #tabla-revisar ~ tbody td:nth-child(7), #tabla-revisar ~ tbody th { min-width: 0; }
    a { color: inherit; text-decoration: none; }
    * { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)";

}  // namespace

std::string_view PageStyle() { return kPageStyle; }

}  // namespace velmora::report
