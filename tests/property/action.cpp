#include "property/action.h"

#include "property/say.h"

namespace velmora::property {

namespace {

std::string Printable(int key) {
    return key > ' ' && key < 127 ? Say(" '", static_cast<char>(key), "'") : "";
}

std::string DescribeDeed(const Action& a) {
    using Kind = Action::Kind;
    switch (a.kind) {
        case Kind::Press:
            return Say("press ", a.target);
        case Kind::Pick:
            return Say("pick \"", a.text, "\" in ", a.target);
        case Kind::Key:
            return Say("key ", a.number, Printable(a.number), " in ", a.target);
        case Kind::Write:
            return Say("write \"", a.text, "\" in ", a.target);
        case Kind::DoubleClick:
            return Say("double-click ", a.target);
        case Kind::Choose:
            return Say("choose ", a.target);
        case Kind::Tick:
            return Say("the clock ticks, ", a.number, " s later");
        case Kind::CutFile:
            return Say("cut ", a.target, " after line ", a.number,
                       a.number % 2 == 1 ? " and a half" : "");
        case Kind::OddLine:
            return Say("line ", a.number, " of ", a.target, " becomes ", a.text);
        case Kind::BareLines:
            return Say("the lines of ", a.target, " end in LF alone");
        case Kind::Junk:
            return Say(a.target, " becomes ", a.number, " meaningless bytes");
    }
    return "?";
}

}  // namespace

std::string Describe(const Action& action) {
    std::string line = DescribeDeed(action);
    if (action.file) line += Say(", file ", *action.file);
    if (action.answer == MsgBoxAnswer::Yes) line += ", answer Yes";
    if (action.at_once) line += ", and at once";
    return line;
}

}  // namespace velmora::property
