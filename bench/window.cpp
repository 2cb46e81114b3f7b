#include "qt/window.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>

#include "bare.h"
#include "evaluation.h"
#include "resident_memory.h"
#include "rows.h"
#include "support/program_on.h"
#include "support/screen_state.h"

namespace velmora::bench {

namespace {

/// All that waits to be done, painting and late deletions included.
void Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// A toolkit that shows no run-time error and no help: there is none in what is measured.
class QuietErrors : public WindowHost {
public:
    void ShowError(std::string_view message) override { Unexpected(message); }
    void OpenGuide(std::string_view section) override { Unexpected(section); }
    void Beep() override { Unexpected("a beep"); }
};

/// The program's window over an evaluation of three days, three tasks and six contaminants each.
struct Program : ProgramOn<Quiet<QuietErrors>> {
    explicit Program(const std::string& file) {
        Restore(file, record);
        Go(ScreenId::Form5);
        window.resize(825, 585);
        window.show();
        Settle();
    }

    void Go(ScreenId screen) {
        window.Run([&] { chain.Go(screen); });
        Settle();
    }
};

Row MeasureMove(const Places& places) {
    constexpr int kRepetitions = 41;
    constexpr double kBudget = 1.3;
    Program program(places.examples);
    Core other;
    Restore(places.examples, other.record);
    BareWindow bare;
    bare.show();
    const auto show_bare = [&](ScreenId screen) {
        other.chain.Go(screen);
        other.chain.Settle();
        bare.Show(other.chain.Current());
        Settle();
    };
    return Compare("move from the contaminants to the sheet", "the same number of bare widgets",
                   {.act = [&] { program.Go(ScreenId::Form5); },
                    .prepare = [&] { program.Go(ScreenId::Form4); }},
                   {.act = [&] { show_bare(ScreenId::Form5); },
                    .prepare = [&] { show_bare(ScreenId::Form4); }},
                   kRepetitions, kBudget);
}

using Contents = std::vector<test::Held>;

void SetContents(const Screen& screen, const Contents& contents) {
    std::size_t place = 0;
    for (const Control& control : screen.Controls()) {
        const auto& content = contents[place++];
        std::visit(
            [&](const auto& held) {
                using Pointer = std::decay_t<decltype(held)>;
                if constexpr (!std::is_same_v<Pointer, Picture>) {
                    *held = std::get<std::remove_pointer_t<Pointer>>(content);
                }
            },
            control.state);
    }
}

/// The places of the controls that show something else.
std::vector<std::size_t> Differing(const Contents& before, const Contents& after) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] != after[i]) places.push_back(i);
    }
    return places;
}

/// One button of the sheet between what the sheet and the record held before it and after it.
class ButtonRun {
public:
    ButtonRun(Program& program, BareWindow& bare, int button)
        : program_(program),
          bare_(bare),
          handler_(HandlerOf(Sheet(), button)),
          name_("Command" + std::string(1, static_cast<char>('0' + button))),
          record_before_(program.record),
          before_(test::StateOf(Sheet())) {
        program_.window.Run(handler_);
        record_after_ = program_.record;
        after_ = test::StateOf(Sheet());
        changed_ = Differing(before_, after_);
    }

    Rows Measure() {
        constexpr int kRepetitions = 101;
        constexpr double kBudget = 1.3;
        const std::string cells =
            "setting " + std::to_string(changed_.size()) + " widgets directly";
        const Side direct{.act = [&] { SetBare(); }, .prepare = [&] { ResetBare(); }};
        Rows rows = {
            Compare(name_ + ", the handler alone", cells, {handler_, [&] { Reset(); }}, direct,
                    kRepetitions),
            Compare(name_ + ", the window's update", cells,
                    {.act = [&] { program_.window.ShowChanges(); },
                     .prepare =
                         [&] {
                             Reset();
                             handler_();
                         }},
                    direct, kRepetitions, kBudget),
            Compare(name_ + ", whole, painted", cells + ", painted",
                    {.act =
                         [&] {
                             program_.window.Run(handler_);
                             Settle();
                         },
                     .prepare = [&] { Reset(); }},
                    {.act =
                         [&] {
                             SetBare();
                             Settle();
                         },
                     .prepare = [&] { ResetBare(); }},
                    kRepetitions, kBudget),
        };
        // The next button starts from where this one led to.
        program_.record = record_after_;
        SetContents(Sheet(), after_);
        program_.window.ShowChanges();
        SetBare();
        Settle();
        return rows;
    }

private:
    Screen& Sheet() { return program_.chain.Current(); }

    void Reset() {
        program_.record = record_before_;
        SetContents(Sheet(), before_);
        program_.window.ShowChanges();
        Settle();
    }

    void SetBare() {
        for (const std::size_t place : changed_) {
            bare_.SetText(place, Sheet().Controls()[place].state);
        }
    }

    void ResetBare() {
        SetContents(Sheet(), before_);
        SetBare();
        Settle();
        SetContents(Sheet(), after_);
    }

    Program& program_;
    BareWindow& bare_;
    std::function<void()> handler_;
    std::string name_;
    EvaluacionRecord record_before_;
    Contents before_;
    EvaluacionRecord record_after_;
    Contents after_;
    std::vector<std::size_t> changed_;
};

Rows MeasureButtons(const Places& places) {
    Program program(places.examples);
    const EvaluacionRecord measured = program.record;
    TypeDay(program.Current<Form5>(), 1, measured.HojaPrimerDia);
    program.window.ShowChanges();
    BareWindow bare;
    bare.Show(program.chain.Current());
    bare.show();
    Settle();
    Rows rows;
    for (int button = 1; button <= kButtons; ++button) {
        for (const Row& row : ButtonRun(program, bare, button).Measure()) rows.push_back(row);
    }
    if (program.record.HojaPrimerDia != measured.HojaPrimerDia) {
        throw std::logic_error("the day came to something else");
    }
    return rows;
}

void RunEvents(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// What a second of ticks costs, and how many they were.
struct Ticking {
    double cpu = 0;  ///< microseconds
    double count = 0;
    double wall = 0;  ///< microseconds

    double PerTick() const { return cpu / count; }
    double Share() const { return 100 * cpu / wall; }
};

Ticking Measured(const std::function<long()>& ticks) {
    constexpr int kMilliseconds = 1500;
    Settle();
    const long first = ticks();
    const double start = ProcessorTime();
    QElapsedTimer watch;
    watch.start();
    RunEvents(kMilliseconds);
    return {ProcessorTime() - start, static_cast<double>(ticks() - first),
            static_cast<double>(watch.nsecsElapsed()) / 1e3};
}

Rows MeasureClock(const Places& places) {
    constexpr int kRepetitions = 7;
    constexpr double kBudget = 1.2;
    constexpr double kShareBudget = 3;  // per cent of a core
    std::vector<double> shares;
    const auto ours = [&] {
        const Program program(places.examples);
        const Ticking ticking = Measured([&] { return program.host.ticks(); });
        shares.push_back(ticking.Share());
        return ticking.PerTick();
    };
    std::vector<double> bare_shares;
    const auto bare = [&] {
        Core core;
        Restore(places.examples, core.record);
        core.chain.Go(ScreenId::Form5);
        BareWindow window;
        window.Show(core.chain.Current());
        window.show();
        long count = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&count] { ++count; });
        timer.start(1);
        const Ticking ticking = Measured([&] { return count; });
        bare_shares.push_back(ticking.Share());
        return ticking.PerTick();
    };
    const Row tick = CompareValues("a tick of the clock, processor time", "an empty timer of 1 ms",
                                   "µs", ours, bare, kRepetitions, kBudget);
    Row share{"the clock, of a core",
              "the empty timer",
              Median(shares),
              Median(bare_shares),
              "%",
              kShareBudget};
    share.of_value = true;
    return {tick, share};
}

}  // namespace

int ShowMemoryOfSheet(const Places& places) {
    Program program(places.examples);
    TypeDay(program.Current<Form5>(), 1, program.record.Hoja(1));
    for (int button = 1; button <= kButtons; ++button) {
        program.window.Run(HandlerOf(program.chain.Current(), button));
        Settle();
    }
    std::cout << ResidentMemory() << '\n';
    return EXIT_SUCCESS;
}

int ShowMemoryOfEmptyWindow() {
    QMainWindow window;
    window.resize(825, 585);
    window.show();
    Settle();
    std::cout << ResidentMemory() << '\n';
    return EXIT_SUCCESS;
}

Rows MeasureWindow(const Places& places) {
    Rows rows = {MeasureMove(places)};
    for (const Row& row : MeasureButtons(places)) rows.push_back(row);
    for (const Row& row : MeasureClock(places)) rows.push_back(row);
    return rows;
}

}  // namespace velmora::bench
