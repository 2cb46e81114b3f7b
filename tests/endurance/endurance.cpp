// velmora_endurance [moves [evaluations [dialogs [rounds]]]]: the whole program in one process for
// as long as one likes. Exit status 1 when memory, objects or open files grow, or when something
// goes wrong.

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "endurance/census.h"
#include "endurance/dialogs.h"
#include "endurance/user.h"
#include "qt/appearance.h"

namespace velmora::endurance {

namespace {

constexpr int kReadings = 40;  // of each round

int NumberOf(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// One half of the run: so many times the same, with a reading now and then on the first screen.
/// What isn't flat is looked at again, in further rounds of as many times: work that leaves
/// something behind does so in each, whereas a cache that is emptied by the clock, or a moment in
/// which the machine was busy, falls into one.
///
/// Each action has a turn of the event loop of its own, as in life: what was left behind is freed,
/// the window painted and the clock told in between.
class Half {
public:
    using Action = std::function<void(int)>;

    Half(User& user, int times, int rounds, Action action, std::function<void()> then)
        : user_(user),
          times_(times),
          most_rounds_(rounds),
          action_(std::move(action)),
          then_(std::move(then)) {}

    void Start() { Next(); }
    int Rounds() const { return rounds_; }
    /// Of the last round.
    const std::vector<Reading>& Readings() const { return readings_; }

private:
    void Next() {
        constexpr int kAfterPainting = 20;  // milliseconds
        const bool due = done_ * kReadings >= (static_cast<int>(readings_.size()) + 1) * times_;
        if (!due) {
            QTimer::singleShot(0, &turn_, [this] { Act(); });
            return;
        }
        user_.GoHome();
        QTimer::singleShot(kAfterPainting, &turn_, [this] {
            readings_.push_back(Take(done_));
            AfterReading();
        });
    }

    void AfterReading() {
        const bool over = done_ >= times_ && readings_.size() >= kReadings;
        const bool last = over && (++rounds_ == most_rounds_ || Faults(readings_).empty());
        if (last || !user_.Faults().empty()) {
            then_();
            return;
        }
        if (over) {
            done_ = 0;
            readings_.clear();
        }
        Next();
    }

    void Act() {
        try {
            action_(done_);
        } catch (const std::exception& error) {  // none may pass through the event loop
            std::cout << error.what() << '\n';
            QApplication::exit(EXIT_FAILURE);
            return;
        }
        ++done_;
        Next();
    }

    User& user_;
    int times_;
    int most_rounds_;
    Action action_;
    std::function<void()> then_;
    QObject turn_;    ///< the turns end with it
    int done_ = 0;    ///< in this round
    int rounds_ = 0;  ///< that are over
    std::vector<Reading> readings_;
};

/// Prints the half's last round; whether all of it is flat.
bool Report(std::string_view what, const Half& half) {
    std::cout << what << ", in quarters, round " << half.Rounds() << '\n';
    Print(std::cout, half.Readings());
    const std::vector<std::string> faults = Faults(half.Readings());
    for (const std::string& fault : faults) std::cout << "NOT FLAT: " << fault << '\n';
    return faults.empty();
}

/// Whether the program's boxes and dialogs leave no more behind than the toolkit's own: the names
/// of the pictures that they were painted with stay in its cache (Qt 6.4).
bool AreFlat(const std::vector<Remains>& dialogs) {
    constexpr double kMore = 1.25;
    constexpr double kBytes = 512;
    return !MemoryIsJudged() || std::ranges::all_of(dialogs, [](const Remains& remains) {
        return remains.ours <= std::max(remains.bare, 0.0) * kMore + kBytes;
    });
}

bool ReportDialogs(const std::vector<Remains>& dialogs) {
    for (const Remains& remains : dialogs) {
        std::cout << "Each of the " << remains.what << " leaves " << std::lround(remains.ours)
                  << " bytes, a bare one of the toolkit's " << std::lround(remains.bare) << '\n';
    }
    if (!AreFlat(dialogs)) std::cout << "NOT FLAT: boxes and dialogs\n";
    return AreFlat(dialogs);
}

int Run(int moves, int evaluations, int dialogs_of_each, int rounds, const std::string& folder) {
    User user(folder + "/evaluacion.doc");
    Random random(5);
    // The evaluations come first, so that the moves have a plan and results to show.
    std::vector<Remains> dialogs;
    Half moving(
        user, moves, rounds, [&](int) { user.Move(random); },
        [&] {
            for (int round = 0; round < rounds && user.Faults().empty(); ++round) {
                dialogs = user.CompareDialogs(dialogs_of_each);
                if (AreFlat(dialogs)) break;
            }
            QApplication::exit();
        });
    Half evaluating(
        user, evaluations, rounds, [&](int i) { user.Evaluate(i % User::kKinds); },
        [&] { user.Faults().empty() ? moving.Start() : QApplication::exit(); });
    QTimer::singleShot(0, [&] { evaluating.Start(); });
    int status = QApplication::exec();  // not ended by quit(), which closes the window first
    for (const std::string& fault : user.Faults()) {
        std::cout << "FAULT: " << fault << '\n';
        status = EXIT_FAILURE;
    }
    if (status != EXIT_SUCCESS) return status;
    const bool evaluations_flat = Report("Whole evaluations", evaluating);
    const bool moves_flat = Report("Moves between screens", moving);
    const bool dialogs_flat = ReportDialogs(dialogs);
    return evaluations_flat && moves_flat && dialogs_flat ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

}  // namespace velmora::endurance

int main(int argc, char* argv[]) {
    constexpr int kMoves = 20000;
    constexpr int kEvaluations = 2000;
    constexpr int kDialogs = 40;
    constexpr int kRounds = 3;
    using velmora::endurance::NumberOf;
    const int moves = argc > 1 ? NumberOf(argv[1]) : kMoves;
    const int evaluations = argc > 2 ? NumberOf(argv[2]) : kEvaluations;
    const int dialogs = argc > 3 ? NumberOf(argv[3]) : kDialogs;
    const int rounds = argc > 4 ? NumberOf(argv[4]) : kRounds;

    velmora::endurance::CountObjects();
    // The program leaves nothing in the user's folders.
    const QTemporaryDir home;
    for (const char* const variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                       "XDG_STATE_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(variable, home.path().toUtf8());
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    velmora::SetDecimalSeparator(".");
    QApplication application(argc, argv);
    velmora::DressApplication(application);
    return velmora::endurance::Run(moves, evaluations, dialogs, rounds, home.path().toStdString());
}
