#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "property/say.h"
#include "property/world.h"

namespace velmora::property {

/// What an invariant says of one step.
class Verdict {
public:
    /// The invariant has nothing to say of this step.
    static Verdict PassedOver() { return {}; }
    static Verdict Holds() {
        Verdict verdict;
        verdict.applies_ = true;
        return verdict;
    }
    template <class... Parts>
    static Verdict Broken(const Parts&... why) {
        Verdict verdict = Holds();
        verdict.why_ = Say(why...);
        return verdict;
    }

    bool Applies() const { return applies_; }
    bool IsBroken() const { return !why_.empty(); }
    const std::string& Why() const { return why_; }

private:
    bool applies_ = false;
    std::string why_;
};

/// A sentence that is true of every step, and the function that looks.
struct Invariant {
    std::string_view sentence;
    Verdict (*judge)(const Step&);
};

extern const std::vector<Invariant> kErrorInvariants;
extern const std::vector<Invariant> kScreenInvariants;
extern const std::vector<Invariant> kRecordInvariants;
extern const std::vector<Invariant> kCaptureInvariants;
extern const std::vector<Invariant> kSheetInvariants;
extern const std::vector<Invariant> kCalculationInvariants;
extern const std::vector<Invariant> kResultInvariants;
extern const std::vector<Invariant> kFileInvariants;

/// All of them. What ends the process stands first.
const std::vector<Invariant>& Invariants();

/// A message box of a screen, with the press, pick or entry that may show it.
struct KnownBox {
    ScreenId screen;
    std::string_view cause;  ///< button, list or menu entry
    std::string_view prompt;
    MsgBoxStyle style;
    std::string_view title = "Velmora";
};

/// Every box that a user can come to see.
std::span<const KnownBox> KnownBoxes();

}  // namespace velmora::property
