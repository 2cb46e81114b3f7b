#include "evaluation.h"
#include "rows.h"
#include "store/evaluation_file.h"

namespace velmora::bench {

Rows MeasureCore(const Places& places) {
    constexpr int kRepetitions = 41;
    Core core;
    Restore(places.examples, core.record);
    const EvaluacionRecord measured = core.record;
    const EvaluacionRecord plan = PlanOf(measured);
    const std::string saved = places.scratch + "/evaluated.doc";
    return {Compare(
        "a whole evaluation of three days in the core", "saving and restoring it once",
        {.act = [&] { Evaluate(core, measured); }, .prepare = [&] { core.record = plan; }}, {[&] {
            WriteEvaluation(saved, measured);
            EvaluacionRecord restored;
            ReadEvaluation(saved, restored);
        }},
        kRepetitions)};
}

}  // namespace velmora::bench
