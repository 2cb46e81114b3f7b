#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/use_bytes.h"
#include "property/process.h"

namespace velmora::fuzz {

/// A use of the program by names, which notes the deeds that it is made of. A thing that the screen
/// doesn't offer, or an end of the program, is a fault of the route.
class Route {
public:
    Route& Work(std::uint8_t which = 0, std::uint8_t what = 0);
    Route& Choose(std::string_view entry, MsgBoxAnswer answer = MsgBoxAnswer::Yes,
                  std::optional<std::string> file = {});
    Route& Press(std::string_view button);
    Route& Pick(std::string_view list, std::string_view item,
                MsgBoxAnswer answer = MsgBoxAnswer::No);
    Route& Write(std::string_view cell, std::string_view text);
    Route& Type(std::string_view cell, std::string_view keys);
    Route& DoubleClick(std::string_view cell);

    const std::vector<Deed>& Deeds() const { return deeds_; }
    const EvaluacionRecord& Record() const { return program_.record; }
    ScreenId Where() const { return program_.Current().Id(); }

private:
    void Do(const std::vector<property::Action>& actions);
    void Do(const Deed& deed);

    property::Process program_{"/proc/self/fd"};
    std::vector<Deed> deeds_;
};

/// A place in the program to start from. The last deed that leads there from the splash screen is
/// a move, so that the screen and the record are all there is to know of it.
struct Start {
    std::vector<Deed> deeds;
    ScreenId screen;
    EvaluacionRecord record;
};
const std::vector<Start>& Starts();

}  // namespace velmora::fuzz
