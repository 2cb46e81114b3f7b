#include "report/session.h"

#include <optional>
#include <set>

#include "report/csv.h"
#include "report/html.h"
#include "report/report.h"
#include "report/summary.h"
#include "report/whole_file.h"

namespace velmora::report {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kManyFiles = 20;  ///< above this there is a progress line

/// One run: what is ordered, and what came of it so far.
class Session {
public:
    Session(const Order& order, const Channels& channels) : order_(order), channels_(channels) {
        for (const std::string& name : order.evaluations) taken_.insert(Canonical(name));
    }

    int Work() {
        if (order_.table) Guarded([&] { OpenTable(); });
        for (const std::string& name : order_.evaluations) {
            ShowProgress();
            Guarded([&] { Evaluate(name); });
        }
        EndProgress();
        if (table_ && rows_) Guarded([&] { table_->Finish(); });
        if (!channels_.out.flush()) Complain("no se puede escribir en la salida estándar");
        return status_;
    }

private:
    static std::string Canonical(const std::string& name) {
        std::error_code trouble;
        const fs::path path = fs::weakly_canonical(PathOf(name), trouble);
        return trouble ? name : NameOf(path);
    }

    /// Runs a step; what goes wrong in it is said, and the others go on.
    template <class Step>
    void Guarded(const Step& step) {
        try {
            step();
        } catch (const FileError& error) {
            Complain(error.what());
        }
    }

    void Complain(const std::string& what) {
        EndProgress();
        channels_.err << kMessageHead << what << '\n';
        status_ = 1;
    }

    /// A file to be written, unless its name is that of an evaluation or of one written already.
    fs::path Target(const std::string& name) {
        if (!taken_.insert(Canonical(name)).second) {
            throw FileError("«" + name + "»: es una de las evaluaciones, o ya se ha escrito");
        }
        if (order_.replace && IsEvaluation(name)) {  // "--csv *.doc" names one
            throw FileError("«" + name + "»: es una evaluación; no se escribe encima");
        }
        return PathOf(name);
    }

    static bool IsEvaluation(const std::string& name) try {
        ReadReport(name);
        return true;
    } catch (const Refused&) {
        return false;
    }

    void OpenTable() {
        table_.emplace(Target(*order_.table), order_.replace);
        table_->Stream() << TableHead();
    }

    void Evaluate(const std::string& name) {
        const Report report = Read(name);
        if (order_.summary) channels_.out << SummaryLine(report, name);
        if (table_) {
            const std::string file = NameOf(PathOf(name).filename());
            table_->Stream() << TableRows(report, file, order_.decimal_point ? '.' : ',');
            rows_ = true;
        }
        if (order_.WantsReports()) WriteReport(report, name);
    }

    static Report Read(const std::string& name) try {
        return ReadReport(name);
    } catch (const Refused& refusal) {
        throw FileError("«" + name + "»: " + refusal.what());
    }

    void WriteReport(const Report& report, const std::string& evaluation) {
        const fs::path target = Target(order_.report.value_or(ReportNameOf(evaluation)));
        WholeFile file(target, order_.replace);
        WriteHtml(report, file.Stream());
        file.Finish();
    }

    void ShowProgress() {
        ++done_;
        const std::size_t all = order_.evaluations.size();
        if (!channels_.progress || all <= kManyFiles) return;
        channels_.err << '\r' << done_ << " de " << all << std::flush;
        progress_shown_ = true;
    }

    void EndProgress() {
        if (progress_shown_) channels_.err << '\n';
        progress_shown_ = false;
    }

    const Order& order_;
    Channels channels_;
    std::set<std::string> taken_;  ///< the evaluations, and what was written
    std::optional<WholeFile> table_;
    bool rows_ = false;  ///< whether an evaluation came into the table
    bool progress_shown_ = false;
    std::size_t done_ = 0;
    int status_ = 0;
};

}  // namespace

std::string ReportNameOf(const std::string& evaluation) {
    return NameOf(PathOf(evaluation).replace_extension(".html"));
}

int Run(const Order& order, const Channels& channels) { return Session(order, channels).Work(); }

}  // namespace velmora::report
