#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <system_error>
#include <utility>

#include "runtime/error.h"

namespace velmora {

namespace {

std::string separador_decimal = ".";  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

std::string Cifras(int n) {
    std::array<char, 12> texto{};
    return {texto.data(), std::to_chars(texto.data(), texto.data() + texto.size(), n).ptr};
}

bool EsCifra(char c) { return c >= '0' && c <= '9'; }

/// Length of the run of digits at the start of `texto`.
std::size_t CifrasIniciales(std::string_view texto) {
    std::size_t n = 0;
    while (n < texto.size() && EsCifra(texto[n])) ++n;
    return n;
}

/// Length of the exponent at the start of `texto`, 0 when no digits follow its letter.
std::size_t ExponenteInicial(std::string_view texto) {
    if (texto.empty() || (texto[0] != 'e' && texto[0] != 'E')) return 0;
    const std::size_t signo = texto.size() > 1 && (texto[1] == '+' || texto[1] == '-') ? 1 : 0;
    const std::size_t cifras = CifrasIniciales(texto.substr(1 + signo));
    return cifras == 0 ? 0 : 1 + signo + cifras;
}

/// A number cut out of a text: its spelling with a point, and how many bytes of the text it took.
struct NumeroInicial {
    std::string escrito;
    std::size_t largo = 0;
};

/// The longest unsigned number at the start of `texto`; empty when no digit is there.
NumeroInicial NumeroSinSigno(std::string_view texto, std::string_view separador) {
    const std::size_t enteras = CifrasIniciales(texto);
    std::size_t largo = enteras;
    std::size_t decimales = 0;
    if (texto.substr(largo).starts_with(separador)) {
        largo += separador.size();
        decimales = CifrasIniciales(texto.substr(largo));
        largo += decimales;
    }
    if (enteras + decimales == 0) return {};
    const std::size_t exponente = ExponenteInicial(texto.substr(largo));

    std::string escrito(texto.substr(0, enteras));
    if (decimales > 0) {
        if (enteras == 0) escrito = "0";
        escrito.append(".").append(texto.substr(enteras + separador.size(), decimales));
    }
    escrito.append(texto.substr(largo, exponente));
    return {std::move(escrito), largo + exponente};
}

/// The value of an unsigned number as `NumeroSinSigno` spells it; infinity when it is too large,
/// 0 when it is too small.
double ValorDe(const std::string& escrito) {
    double valor = 0;
    const auto leido = std::from_chars(escrito.data(), escrito.data() + escrito.size(), valor);
    if (leido.ec != std::errc::result_out_of_range) return valor;
    // Too large and too small are reported alike, so the place of the first digit decides.
    const std::size_t e = escrito.find_first_of("eE");
    const std::string mantisa = escrito.substr(0, e);
    const std::size_t punto = std::min(mantisa.find('.'), mantisa.size());
    const std::size_t primera = mantisa.find_first_not_of("0.");
    if (primera == std::string::npos) return 0;
    double magnitud = static_cast<double>(punto) - static_cast<double>(primera);
    if (e != std::string::npos) {
        const bool negativo = escrito[e + 1] == '-';
        const std::size_t cifras = escrito.find_first_of("0123456789", e);
        double exponente = 0;
        for (std::size_t i = cifras; i < escrito.size(); ++i) {
            exponente = std::min(exponente * 10 + (escrito[i] - '0'), 1e9);
        }
        magnitud += negativo ? -exponente : exponente;
    }
    return magnitud > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

/// The decimal value that fifteen significant digits give: digits d1 d2 d3 ... without zeros at the
/// end stand for 0.d1d2d3... x 10^exponente. Zero has no digits.
struct Decimales {
    bool negativo = false;
    std::string cifras;
    int exponente = 0;
};

Decimales QuinceCifras(double valor) {
    constexpr int kDecimales = 14;
    std::array<char, 32> texto{};
    const auto escrito = std::to_chars(texto.data(), texto.data() + texto.size(), std::fabs(valor),
                                       std::chars_format::scientific, kDecimales);
    const std::string_view cientifico(texto.data(), escrito.ptr);
    const std::size_t e = cientifico.find('e');

    Decimales d;
    d.cifras.append(cientifico.substr(0, 1)).append(cientifico.substr(2, e - 2));
    d.cifras.erase(d.cifras.find_last_not_of('0') + 1);
    if (d.cifras.empty()) return d;
    d.negativo = valor < 0;
    const std::size_t signo = cientifico[e + 1] == '+' ? 2 : 1;
    std::from_chars(cientifico.data() + e + signo, cientifico.data() + cientifico.size(),
                    d.exponente);
    d.exponente += 1;
    return d;
}

/// The digits ahead of the decimal separator, none for a value below 1.
std::string ParteEntera(const Decimales& d) {
    if (d.exponente <= 0) return {};
    const auto n = static_cast<std::size_t>(d.exponente);
    std::string parte = d.cifras.substr(0, n);
    parte.resize(n, '0');
    return parte;
}

/// The digits behind the decimal separator, none for a whole number.
std::string ParteDecimal(const Decimales& d) {
    if (d.exponente <= 0) {
        return d.cifras.empty()
                   ? ""
                   : std::string(static_cast<std::size_t>(-d.exponente), '0') + d.cifras;
    }
    const auto n = static_cast<std::size_t>(d.exponente);
    return n < d.cifras.size() ? d.cifras.substr(n) : "";
}

std::string NotacionPlana(const Decimales& d, const std::string& separador) {
    std::string texto = d.negativo ? "-" : "";
    const std::string entera = ParteEntera(d);
    const std::string decimal = ParteDecimal(d);
    texto += entera.empty() ? "0" : entera;
    if (!decimal.empty()) texto += separador + decimal;
    return texto;
}

std::string NotacionExponencial(const Decimales& d, const std::string& separador) {
    std::string texto = d.negativo ? "-" : "";
    texto += d.cifras.substr(0, 1);
    if (d.cifras.size() > 1) texto += separador + d.cifras.substr(1);
    const int exponente = d.exponente - 1;
    std::string cifras = Cifras(std::abs(exponente));
    if (cifras.size() < 2) cifras.insert(0, "0");
    return texto + (exponente < 0 ? "E-" : "E+") + cifras;
}

/// Rounds to `decimales` places behind the separator, halves away from zero.
Decimales Redondeado(Decimales d, int decimales) {
    const int quedan = d.exponente + decimales;
    if (quedan >= static_cast<int>(d.cifras.size())) return d;
    if (quedan < 0) return {};
    const auto n = static_cast<std::size_t>(quedan);
    const bool sube = d.cifras[n] >= '5';
    d.cifras.resize(n);
    if (sube) {
        while (!d.cifras.empty() && d.cifras.back() == '9') d.cifras.pop_back();
        if (d.cifras.empty()) {
            d.cifras = "1";
            d.exponente += 1;
        } else {
            ++d.cifras.back();
        }
    }
    d.cifras.erase(d.cifras.find_last_not_of('0') + 1);
    return d.cifras.empty() ? Decimales{} : d;
}

std::string_view SinBlancos(std::string_view texto) {
    const std::size_t primero = texto.find_first_not_of(" \t");
    if (primero == std::string_view::npos) return {};
    return texto.substr(primero, texto.find_last_not_of(" \t") - primero + 1);
}

/// Half to even, within [minimo, maximo].
double Redondear(double valor, double minimo, double maximo) {
    const double redondo = std::nearbyint(valor);
    if (!(redondo >= minimo && redondo <= maximo)) throw ErrorEjecucion(TipoError::Desbordamiento);
    return redondo;
}

}  // namespace

void FijarSeparadorDecimal(std::string separador) { separador_decimal = std::move(separador); }

const std::string& SeparadorDecimal() { return separador_decimal; }

Doble LeerValor(std::string_view texto) {
    const bool negativo = texto.starts_with('-');
    const NumeroInicial numero = NumeroSinSigno(texto.substr(negativo ? 1 : 0), ".");
    if (numero.escrito.empty()) return 0.0;
    const double valor = ValorDe(numero.escrito);
    if (std::isinf(valor)) throw ErrorEjecucion(TipoError::Desbordamiento);
    return negativo ? -valor : valor;
}

std::optional<double> NumeroCompleto(std::string_view texto, std::string_view separador) {
    const bool negativo = texto.starts_with('-');
    if (negativo || texto.starts_with('+')) texto.remove_prefix(1);
    const NumeroInicial numero = NumeroSinSigno(texto, separador);
    if (numero.escrito.empty() || numero.largo != texto.size()) return std::nullopt;
    const double valor = ValorDe(numero.escrito);
    return negativo ? -valor : valor;
}

Doble ConvertirDoble(std::string_view texto) {
    const auto valor = NumeroCompleto(SinBlancos(texto), separador_decimal);
    if (!valor) throw ErrorEjecucion(TipoError::TiposNoCoinciden);
    if (std::isinf(*valor)) throw ErrorEjecucion(TipoError::Desbordamiento);
    return *valor;
}

Entero ConvertirEntero(std::string_view texto) { return RedondearEntero(ConvertirDoble(texto)); }

int ConvertirLargo(std::string_view texto) {
    return static_cast<int>(Redondear(ConvertirDoble(texto).Valor(),
                                      std::numeric_limits<int>::min(),
                                      std::numeric_limits<int>::max()));
}

std::string TextoDoble(Doble valor) {
    constexpr int kPrimerExponencialArriba = 15;  // 1E+15
    constexpr int kUltimoFijoAbajo = -4;          // 0.0001
    const Decimales d = QuinceCifras(valor.Valor());
    if (d.cifras.empty()) return "0";
    const int potencia = d.exponente - 1;
    const bool fijo = potencia >= kUltimoFijoAbajo && potencia < kPrimerExponencialArriba;
    return fijo ? NotacionPlana(d, separador_decimal) : NotacionExponencial(d, separador_decimal);
}

std::string TextoEntero(Entero valor) { return Cifras(valor.Valor()); }

Entero RedondearEntero(Doble valor) {
    return static_cast<int>(Redondear(valor.Valor(), std::numeric_limits<std::int16_t>::min(),
                                      std::numeric_limits<std::int16_t>::max()));
}

std::string FormatoDosDecimales(Doble valor) {
    const Decimales d = Redondeado(QuinceCifras(valor.Valor()), 2);
    return (d.negativo ? "-" : "") + ParteEntera(d) + separador_decimal + ParteDecimal(d);
}

std::string TextoDecimalPlano(Doble valor) {
    return NotacionPlana(QuinceCifras(valor.Valor()), ".");
}

}  // namespace velmora
