#include "property/invariant.h"

namespace velmora::property {

const std::vector<Invariant>& Invariants() {
    static const std::vector<Invariant> all = [] {
        std::vector<Invariant> gathered;
        for (const auto* const group :
             {&kErrorInvariants, &kScreenInvariants, &kRecordInvariants, &kCaptureInvariants,
              &kSheetInvariants, &kCalculationInvariants, &kResultInvariants, &kFileInvariants}) {
            gathered.insert(gathered.end(), group->begin(), group->end());
        }
        return gathered;
    }();
    return all;
}

}  // namespace velmora::property
