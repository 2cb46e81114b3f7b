#include "store/evaluation_file.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
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
        for (int dia = 1; dia <= 3; ++dia) visit(record.Hoja(dia)(entrada));
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

/// The lines of a file, in a memory that doesn't grow with it: what a line has beyond 64 KiB is
/// passed over, as is, once the lines have come to a MiB, what one has beyond 256 bytes. That is
/// more than anybody types, and as much as text cells lay out without keeping their user waiting:
/// their layout is the toolkit's, and takes in the whole text. Beyond the first 64 MiB the file is
/// taken as ended.
class Lines {
public:
    explicit Lines(std::istream& in) : in_(in) {}

    /// The next line without its end, up to the next call; nothing at the end of the file.
    std::optional<std::string_view> Next() {
        const std::streamsize room =
            std::min({kMaximoDeLinea, std::max(kSiempre, holgura_), queda_});
        if (room == 0) return std::nullopt;
        in_.getline(linea_.get(), room + 1);
        const std::streamsize leidos = in_.gcount();  // the line's end, where it has one, too
        if (leidos == 0) return std::nullopt;

        const bool cortada = in_.fail();
        const bool con_fin = !cortada && !in_.eof();
        std::string_view linea(linea_.get(), static_cast<std::size_t>(leidos - (con_fin ? 1 : 0)));
        queda_ -= leidos;
        holgura_ -= leidos;
        if (cortada) {
            in_.clear();
            in_.ignore(queda_, '\n');
            queda_ -= in_.gcount();
        } else if (linea.ends_with('\r')) {
            linea.remove_suffix(1);
        }
        return linea;
    }

private:
    static constexpr std::streamsize kMaximoDeLinea = std::streamsize{64} << 10U;
    static constexpr std::streamsize kSiempre = 256;

    std::istream& in_;
    std::streamsize queda_ = std::streamsize{64} << 20U;
    std::streamsize holgura_ = std::streamsize{1} << 20U;  ///< for lines longer than `kSiempre`
    // A place more for the zero that getline adds. NOLINTNEXTLINE(modernize-avoid-c-arrays)
    std::unique_ptr<char[]> linea_ = std::make_unique_for_overwrite<char[]>(kMaximoDeLinea + 1);
};

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

/// Whether the line is a text between its only two quotes, as the writer leaves it.
bool IsQuoted(std::string_view linea) {
    const std::string_view texto = Trimmed(linea);
    return texto.size() >= 2 && texto.front() == kComilla &&
           texto.find(kComilla, 1) == texto.size() - 1;
}

/// Reads each value from the next line. What can't be read leaves its field as it was.
class LineReader {
public:
    LineReader(std::istream& in, ReadingNotes& notes) : lines_(in), notes_(notes) {}

    void operator()(std::string& texto) {
        const auto linea = NextLine();
        if (!linea) return;
        texto = FromWindows1252(StringOf(*linea));
        if (!IsQuoted(*linea)) notes_.unquoted_strings.push_back(notes_.lines);
    }
    void operator()(Entero& numero) {
        ReadNumber([&](double leido) { numero = RedondearEntero(leido); });
    }
    void operator()(Doble& numero) {
        ReadNumber([&](double leido) { numero = leido; });
    }

private:
    std::optional<std::string_view> NextLine() {
        const auto linea = lines_.Next();
        if (linea) ++notes_.lines;
        return linea;
    }

    /// Hands on the number of the next line, unless there is none or it doesn't fit.
    template <class Store>
    void ReadNumber(Store store) {
        const auto linea = NextLine();
        if (!linea) return;
        const auto numero = NumeroCompleto(Trimmed(*linea), ".");
        bool leido = false;
        if (numero && std::isfinite(*numero)) {
            Intentar([&] {
                store(*numero);
                leido = true;
            });
        }
        if (!leido) notes_.unread_numbers.push_back(notes_.lines);
    }

    Lines lines_;
    ReadingNotes& notes_;
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

void ReadEvaluation(const std::string& file_name, EvaluacionRecord& record, ReadingNotes& notes) {
    if (TypeOf(file_name) != std::filesystem::file_type::regular) return;
    std::ifstream in(file_name, std::ios::binary);
    if (!in) return;
    LineReader reader(in, notes);
    ForEachValue(record, [&](auto& valor) { reader(valor); });
    notes.more =
        notes.lines == kLinesOfEvaluation && in.peek() != std::ifstream::traits_type::eof();
}

void ReadEvaluation(const std::string& file_name, EvaluacionRecord& record) {
    ReadingNotes unused;
    ReadEvaluation(file_name, record, unused);
}

}  // namespace velmora
