#include "store/evaluation_file.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>

#include "core/numbers.h"
#include "runtime/error.h"
#include "store/windows1252.h"

namespace velmora {

namespace {

constexpr std::string_view kFinDeLineaEscrito = "\r\n";
constexpr char kComilla = '"';

/// Visits the saved part of the record, one value after another, in the order of the file. Writer
/// and reader both go by this walk, so that they can't drift apart.
template <class Record, class Visitor>
void ForEachValue(Record& record, Visitor&& visit) {
    for (auto& dato : record.DatosEmpresa) visit(dato);
    visit(record.NumJornadas);
    visit(record.NumTareas);
    for (int dia = 1; dia <= 3; ++dia) {
        for (int tarea = 1; tarea <= 3; ++tarea) {
            visit(record.TiempoExposicion(dia, tarea));
            visit(record.Muestras30(dia, tarea));
            visit(record.Muestras15(dia, tarea));
        }
    }
    for (auto& numero : record.NumContaminantes) visit(numero);
    for (int tarea = 1; tarea <= 3; ++tarea) {
        for (int contaminante = 1; contaminante <= 6; ++contaminante) {
            visit(record.NombreContaminante(tarea, contaminante));
            visit(record.VlaEd(tarea, contaminante));
            visit(record.VlaEc(tarea, contaminante));
            visit(record.TiempoMuestreo(tarea, contaminante));
            visit(record.Aditivo(tarea, contaminante));
            visit(record.Unidades(tarea, contaminante));
        }
    }
    for (int entrada = HojaDelDia::kFirst; entrada <= HojaDelDia::kLast; ++entrada) {
        visit(record.HojaPrimerDia(entrada));
        visit(record.HojaSegundoDia(entrada));
        visit(record.HojaTercerDia(entrada));
    }
    for (auto& fila : record.HojaFinal) {
        for (auto& celda : fila) visit(celda);
    }
}

/// Writes each value on a line of its own.
class LineWriter {
public:
    explicit LineWriter(std::ostream& out) : out_(out) {}

    void operator()(const std::string& texto) {
        WriteLine(kComilla + ToWindows1252(texto) + kComilla);
    }
    void operator()(Entero numero) { WriteLine(TextoEntero(numero)); }
    void operator()(Doble numero) { WriteLine(TextoDecimalPlano(numero)); }

private:
    void WriteLine(const std::string& linea) { out_ << linea << kFinDeLineaEscrito; }

    std::ostream& out_;
};

/// The next line without its end, or nothing at the end of the file. An overlong line is cut and
/// its rest passed over, so that a file of any size takes a bounded memory.
std::optional<std::string> NextLine(std::istream& in) {
    constexpr std::size_t kMaximo = std::size_t{8} << 20U;
    constexpr auto kFin = std::char_traits<char>::eof();
    if (in.peek() == kFin) return std::nullopt;

    std::string linea;
    bool retorno = false;  // a CR that belongs to the line's end if the line ends here
    for (auto c = in.get(); c != kFin && c != '\n'; c = in.get()) {
        if (retorno && linea.size() < kMaximo) linea += '\r';
        retorno = c == '\r';
        if (!retorno && linea.size() < kMaximo) linea += static_cast<char>(c);
    }
    return linea;
}

std::string_view Trimmed(std::string_view texto) {
    constexpr std::string_view kBlancos = " \t";
    const std::size_t primero = std::min(texto.find_first_not_of(kBlancos), texto.size());
    texto.remove_prefix(primero);
    return texto.substr(0, texto.find_last_not_of(kBlancos) + 1);
}

/// What stands between the first two quotes; without a closing one up to the end of the line,
/// without any the text without the blanks around it.
std::string_view StringOf(std::string_view linea) {
    const std::size_t abre = linea.find(kComilla);
    if (abre == std::string_view::npos) return Trimmed(linea);
    linea.remove_prefix(abre + 1);
    return linea.substr(0, linea.find(kComilla));
}

/// Reads each value from the next line. What can't be read leaves its field as it was.
class LineReader {
public:
    explicit LineReader(std::istream& in) : in_(in) {}

    void operator()(std::string& texto) {
        if (const auto linea = NextLine(in_)) texto = FromWindows1252(StringOf(*linea));
    }
    void operator()(Entero& numero) {
        if (const auto leido = NextNumber()) {
            Intentar([&] { numero = RedondearEntero(*leido); });
        }
    }
    void operator()(Doble& numero) {
        if (const auto leido = NextNumber()) numero = *leido;
    }

private:
    /// The number on the next line; nothing when there is none or it is too large for a Double.
    std::optional<double> NextNumber() {
        const auto linea = NextLine(in_);
        if (!linea) return std::nullopt;
        const auto numero = NumeroCompleto(Trimmed(*linea), ".");
        return numero && std::isfinite(*numero) ? numero : std::nullopt;
    }

    std::istream& in_;
};

std::filesystem::file_type TypeOf(const std::string& file_name) {
    std::error_code ignored;  // what can't be looked at is neither regular nor missing
    return std::filesystem::status(file_name, ignored).type();
}

}  // namespace

void WriteEvaluation(const std::string& file_name, const EvaluacionRecord& record) {
    // Opening a pipe would wait for its reader: only a file, or a name yet to be made, is opened.
    const auto type = TypeOf(file_name);
    if (type != std::filesystem::file_type::regular &&
        type != std::filesystem::file_type::not_found) {
        return;
    }
    std::ofstream out(file_name, std::ios::binary | std::ios::trunc);
    if (out) ForEachValue(record, LineWriter(out));
}

void ReadEvaluation(const std::string& file_name, EvaluacionRecord& record) {
    if (TypeOf(file_name) != std::filesystem::file_type::regular) return;
    std::ifstream in(file_name, std::ios::binary);
    if (in) ForEachValue(record, LineReader(in));
}

}  // namespace velmora
